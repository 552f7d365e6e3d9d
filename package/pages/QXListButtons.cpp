#include "package/pages/QXListButtons.h"

TListButtons::TListButtons(TContainer& Page, TControl& List, const TTexts& Captions, const TTexts& Names)
    : btnAdd(Page, Names.Add, Captions.Add), btnEdit(Page, Names.Edit, Captions.Edit),
      btnDelete(Page, Names.Delete, Captions.Delete)
{
    List.OnKey = [this](std::string_view Key) {
        const TButton* Button = Key == "Insert"                 ? &btnAdd
                                : Key == "F2" || Key == "Enter" ? &btnEdit
                                : Key == "Del"                  ? &btnDelete
                                                                : nullptr;
        if (!Button || !Button->IsEnabled())
            return false;
        Button->OnClick();
        return true;
    };
}
