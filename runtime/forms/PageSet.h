// The pages of one action or options object, as the host works with them.
#pragma once

#include "host/QXPages.h"

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

class TPageSet final : public IQXPageOwner
{
public:
    /// Makes a page of each class. The object must last as long as its pages.
    TPageSet(TCustomQXAction& Action, std::span<const TQXPageClass> Classes);
    TPageSet(TQXOptionsObject& Options, std::span<const TQXPageClass> Classes);

    [[nodiscard]] std::vector<TPage*> Pages() const override;
    [[nodiscard]] std::size_t Count() const { return FPages.size(); }
    [[nodiscard]] TPage& Page(std::size_t Index) const { return *FPages[Index]; }
    [[nodiscard]] std::string_view ClassName(std::size_t Index) const { return FClasses[Index].ClassName; }
    /// The tab's caption as the page gives it.
    [[nodiscard]] std::string PageName(std::size_t Index) const;

    /// Prepares the pages, the first time, and copies the object's properties into them.
    void Read();
    /// Copies the pages into the object's properties.
    void Write();
    /// The page comes to the front; the one that was there goes.
    void Activate(std::size_t Index);
    /// What the page says of what it holds; True of a page that does not check.
    [[nodiscard]] bool Validate(std::size_t Index) const;
    /// A hint as the page wants it shown.
    [[nodiscard]] std::string ShownHint(std::size_t Index, std::string Text) const;
    /// Brings the controls of all pages in line with each other.
    void ApplyRules() const;

private:
    explicit TPageSet(std::span<const TQXPageClass> Classes);
    void InitPages();

    std::variant<TCustomQXAction*, TQXOptionsObject*> FObject;
    std::span<const TQXPageClass> FClasses;
    std::vector<std::unique_ptr<TPage>> FPages;
    bool FIsReady = false;
    IQXActionPage* FActive = nullptr;
};
