#include "shell/menus.h"

#include <algorithm>

#include "basic/error.h"

MenuTable Menus;

namespace {

constexpr std::string_view kEdit = "mnudispedit";
constexpr int kFirstCreatedItem = 3;
constexpr int kLastEditItem = 7;

MenuItem BarMenu(const char* name, const char* caption, bool enabled)
{
    return {.Name = name, .Parent = "", .Caption = caption, .Enabled = enabled};
}

MenuItem Entry(std::string name, std::string_view parent, const char* caption, bool enabled)
{
    return {.Name = std::move(name), .Parent = std::string(parent), .Caption = caption, .Enabled = enabled};
}

MenuItem Separator(std::string name, std::string_view parent)
{
    return {.Name = std::move(name), .Parent = std::string(parent), .Caption = "-", .Separator = true};
}

std::string Indexed(std::string_view name, int index)
{
    return std::string(name) + "(" + std::to_string(index) + ")";
}

}  // namespace

std::string EditItemName(int index)
{
    return Indexed("mnudispeditsubs", index);
}

std::string LowerItemName(int index)
{
    return Indexed("mnudispeditsubslower", index);
}

void MenuTable::Reset()
{
    items_ = {
        BarMenu("mnuFile", "&File", true),
        Entry("mnuFileNew", "mnuFile", "&New...", false),
        Entry("mnuFileOpen", "mnuFile", "&Open...", false),
        Separator("mnusep1", "mnuFile"),
        Entry("mnuFileSave", "mnuFile", "&Save Problem...", false),
        Separator("mnusep5", "mnuFile"),
        Entry("mnuFileChangeModules", "mnuFile", "Change &Modules", false),
        Separator("mnusep2", "mnuFile"),
        Entry("mnuFileExit", "mnuFile", "E&xit", true),
        BarMenu("mnudispedit", "&Edit", false),
        Entry(EditItemName(0), kEdit, "", true),
        Separator(EditItemName(1), kEdit),
        Entry(EditItemName(2), kEdit, "", true),
        BarMenu("mnuSolution", "&Solution", false),
        Entry("mnuSolutionSolve", "mnuSolution", "&Solve", true),
        Separator("mnusep8", "mnuSolution"),
        Entry("mnuSolutionPrinttoPrinter", "mnuSolution", "&Print", false),
        Entry("mnuSolutionPrinttoText", "mnuSolution", "Save &As Text File", false),
    };
    Notify();
}

MenuItem* MenuTable::Find(std::string_view name)
{
    const auto found = std::find_if(items_.begin(), items_.end(),
                                    [name](const MenuItem& item) { return item.Name == name; });
    return found == items_.end() ? nullptr : &*found;
}

const MenuItem& MenuTable::Item(std::string_view name) const
{
    const auto found = std::find_if(items_.begin(), items_.end(),
                                    [name](const MenuItem& item) { return item.Name == name; });
    if (found == items_.end()) Raise(ErrorNumber::SubscriptOutOfRange);
    return *found;
}

void MenuTable::Notify() const
{
    if (Changed) Changed();
}

void MenuTable::SetCaption(std::string_view name, std::string_view caption)
{
    if (MenuItem* item = Find(name)) item->Caption = caption;
    Notify();
}

void MenuTable::SetEnabled(std::string_view name, bool enabled)
{
    if (MenuItem* item = Find(name)) item->Enabled = enabled;
    Notify();
}

void MenuTable::SetVisible(std::string_view name, bool visible)
{
    if (MenuItem* item = Find(name)) item->Visible = visible;
    Notify();
}

void MenuTable::SetEditItem(int index, std::string_view caption)
{
    Give(EditItemName(index), kEdit, "mnuSolution", caption);
}

void MenuTable::SetLowerItem(int index, std::string_view caption)
{
    const std::string behind =
        Find(EditItemName(kFirstCreatedItem)) ? EditItemName(kFirstCreatedItem) : "mnuSolution";
    Give(LowerItemName(index), EditItemName(2), behind, caption);
}

// The item takes the caption; a new one is put in front of the item `before`.
void MenuTable::Give(const std::string& name, std::string_view parent, std::string_view before,
                     std::string_view caption)
{
    MenuItem* item = Find(name);
    if (item == nullptr) {
        const auto place = items_.begin() + (Find(before) - items_.data());
        item = &*items_.insert(place, Entry(name, parent, "", true));
    }
    item->Caption = caption;
    item->Enabled = true;
    item->Visible = true;
    Notify();
}

void MenuTable::RemoveEditItems()
{
    std::erase_if(items_, [](const MenuItem& item) {
        for (int index = kFirstCreatedItem; index <= kLastEditItem; ++index)
            if (item.Name == EditItemName(index)) return true;
        return false;
    });
    for (MenuItem& item : items_)
        if (item.Name == EditItemName(1) || item.Name == EditItemName(2) || item.Parent == EditItemName(2))
            item.Visible = false;
    Notify();
}

void MenuTable::EnableEditItems(int first, int last, bool enabled)
{
    for (int index = first; index <= last; ++index)
        if (MenuItem* item = Find(EditItemName(index))) item->Enabled = enabled;
    Notify();
}

void MenuTable::EnablePrinting(bool enabled)
{
    for (const char* name : {"mnuSolutionPrinttoPrinter", "mnuSolutionPrinttoText"})
        if (MenuItem* item = Find(name)) item->Enabled = enabled;
    Notify();
}
