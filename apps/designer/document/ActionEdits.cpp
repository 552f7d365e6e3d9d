#include "apps/designer/document/ActionEdits.h"

#include "host/QXServices.h"

#include <algorithm>
#include <iterator>
#include <numeric>

namespace
{
std::size_t Index(int Place)
{
    return static_cast<std::size_t>(Place);
}

/// A copy that no file holds yet.
TProjectAction CopyOf(const TProjectAction& Action)
{
    TProjectAction Copy{.Type = Action.Type,
                        .Name = Action.Name,
                        .Enabled = Action.Enabled,
                        .OnFailure = Action.OnFailure,
                        .TimeoutSeconds = Action.TimeoutSeconds,
                        .Object = QXActionServices().FindAction(Action.Type)->ActionClass.Create(),
                        .Group = Action.Group,
                        .When = Action.When,
                        .Arguments = Action.Arguments};
    for (std::size_t Row = 0; Row < Action.Object->Properties().size(); ++Row)
        if (const TQXProperty& Property = Copy.Object->Properties()[Row]; Property.IsPersisted())
            Property.Write(Action.Object->Properties()[Row].Read());
    for (std::size_t Row = 0; Row < Action.Object->Scripts().size(); ++Row)
        Copy.Object->Scripts()[Row]->SetText(Action.Object->Scripts()[Row]->Text());
    return Copy;
}

TPlaces Range(int First, std::size_t Count)
{
    TPlaces Places(Count);
    std::iota(Places.begin(), Places.end(), First);
    return Places;
}

TPlaces Insert(TProject& Project, std::vector<TProjectAction> Actions, int Place)
{
    const int There = std::clamp(Place, ActionEdits::FirstOwn(Project), static_cast<int>(Project.Actions.size()));
    const std::size_t Count = Actions.size();
    Project.Actions.insert(Project.Actions.begin() + There, std::make_move_iterator(Actions.begin()),
                           std::make_move_iterator(Actions.end()));
    return Range(There, Count);
}

TPlaces OwnOnes(const TProject& Project, const TPlaces& Places)
{
    TPlaces Own;
    std::copy_if(Places.begin(), Places.end(), std::back_inserter(Own),
                 [&](int Place) { return !Project.IsIncluded(Project.Actions[Index(Place)]); });
    return Own;
}

std::vector<TProjectAction> TakeOut(TProject& Project, const TPlaces& Places)
{
    std::vector<TProjectAction> Taken;
    for (const int Place : Places)
        Taken.push_back(std::move(Project.Actions[Index(Place)]));
    for (auto Place = Places.rbegin(); Place != Places.rend(); ++Place)
        Project.Actions.erase(Project.Actions.begin() + *Place);
    return Taken;
}
} // namespace

namespace ActionEdits
{
int FirstOwn(const TProject& Project)
{
    const auto IsIncluded = [&](const TProjectAction& Action) { return Project.IsIncluded(Action); };
    return static_cast<int>(std::count_if(Project.Actions.begin(), Project.Actions.end(), IsIncluded));
}

TPlaces Add(TProject& Project, const std::string& ClassName, int Place)
{
    const TQXActionRegistration& Registration = *QXActionServices().FindAction(ClassName);
    std::vector<TProjectAction> Actions;
    Actions.push_back({.Type = Registration.ActionClass.ClassName,
                       .Name = Registration.DisplayName,
                       .Object = Registration.ActionClass.Create()});
    return Insert(Project, std::move(Actions), Place);
}

TPlaces Remove(TProject& Project, const TPlaces& Places)
{
    const TPlaces Own = OwnOnes(Project, Places);
    TakeOut(Project, Own);
    if (Own.empty() || Project.Actions.empty())
        return {};
    return {std::min(Own.front(), static_cast<int>(Project.Actions.size()) - 1)};
}

TPlaces Move(TProject& Project, const TPlaces& Places, int Place)
{
    const TPlaces Own = OwnOnes(Project, Places);
    const auto Before = std::count_if(Own.begin(), Own.end(), [&](int Each) { return Each < Place; });
    return Insert(Project, TakeOut(Project, Own), Place - static_cast<int>(Before));
}

TPlaces Shift(TProject& Project, const TPlaces& Places, int By)
{
    TPlaces Own = OwnOnes(Project, Places);
    if (Own.empty() ||
        (By < 0 ? Own.front() <= FirstOwn(Project) : Own.back() + 1 >= static_cast<int>(Project.Actions.size())))
        return Own;
    const auto Swap = [&](int Place) { std::swap(Project.Actions[Index(Place)], Project.Actions[Index(Place + By)]); };
    if (By < 0)
        std::for_each(Own.begin(), Own.end(), Swap);
    else
        std::for_each(Own.rbegin(), Own.rend(), Swap);
    TPlaces Moved = Own;
    for (int& Place : Moved)
        Place += By;
    return Moved;
}

TPlaces Duplicate(TProject& Project, const TPlaces& Places)
{
    std::vector<TProjectAction> Copies;
    for (const int Place : Places)
        Copies.push_back(CopyOf(Project.Actions[Index(Place)]));
    return Places.empty() ? Places : Insert(Project, std::move(Copies), Places.back() + 1);
}

TPlaces Apply(TProject& Project, const TPlaces& Places, const std::function<void(TProjectAction&)>& Edit)
{
    for (const int Place : OwnOnes(Project, Places))
        Edit(Project.Actions[Index(Place)]);
    return Places;
}

std::string Copy(const TProject& Project, const TPlaces& Places)
{
    TProject Clip;
    for (const int Place : Places)
        Clip.Actions.push_back(CopyOf(Project.Actions[Index(Place)]));
    return Clip.ToText();
}

TPlaces Paste(TProject& Project, const std::string& Text, int Place)
{
    std::vector<TProjectAction> Copies;
    for (const TProjectAction& Action : TProject::Parse("clipboard", Text).Actions)
        Copies.push_back(CopyOf(Action));
    return Insert(Project, std::move(Copies), Place);
}
} // namespace ActionEdits
