#include "package/pages/QXCodePagePicker.h"
#include "tests/pages/PagesHost.h"

#include <stdexcept>

namespace
{
/// Keeps what is said.
class TSaid final : public IQXDesignApplicationServices
{
public:
    [[nodiscard]] std::string ExpandDesignTime(std::string_view Expression) override { return std::string(Expression); }
    [[nodiscard]] TQXAnswer ShowDialog(const TQXDialog& Dialog) override
    {
        Texts.Add(Dialog.Text);
        return {};
    }
    void ShowForm(TForm& Form) override { Form.Close(false); }

    TStringList Texts;
};
} // namespace

TEST(CodePageForm, SaysWhyTheSystemListsNoCodePages)
{
    TPagesHost Host;
    TSaid Said;
    Host.Runtime.SetDesignServices(&Said);
    TCodePageForm Form([]() -> std::vector<int> { throw std::runtime_error("Too many open files"); });
    Form.btnOK.OnClick();
    EXPECT_EQ(Said.Texts,
              (TStringList{"Unable to retrieve code pages : Too many open files", "Please select a code page."}));
    EXPECT_FALSE(Form.IsClosed());
    EXPECT_EQ(Form.GetCodePage(), 0);
    Host.Runtime.SetDesignServices(nullptr);
}
