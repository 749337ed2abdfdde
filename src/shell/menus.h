// The menus of the main window as data: which items there are, their captions, what can be chosen. `frmMenu`
// shows them; everything else only writes here.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

struct MenuItem {
    std::string Name = {};     // "mnuFileNew", "mnudispeditsubs(0)"
    std::string Parent = {};   // the menu that it stands in; empty for the menus of the bar
    std::string Caption = {};  // "&New..."; empty: there is nothing to show yet
    bool Separator = false;
    bool Enabled = true;
    bool Visible = true;
};

class MenuTable {
public:
    MenuTable() { Reset(); }
    void Reset();  // as the main window first appears

    // In the order of the menus, a submenu's items behind it.
    [[nodiscard]] const std::vector<MenuItem>& Items() const { return items_; }
    // "Subscript out of range" when it does not exist.
    [[nodiscard]] const MenuItem& Item(std::string_view name) const;

    void SetCaption(std::string_view name, std::string_view caption);
    void SetEnabled(std::string_view name, bool enabled);
    void SetVisible(std::string_view name, bool visible);

    // Items 3 to 7 of the Edit menu and the items of its submenu come and go with the problem form. A caption
    // given to an item that does not exist creates it, visible and enabled.
    void SetEditItem(int index, std::string_view caption);
    void SetLowerItem(int index, std::string_view caption);
    // What the problem form's end does: items 3 to 7 go, the others and the submenu's hide.
    void RemoveEditItems();

    // Items of the Edit menu that do not exist are passed over.
    void EnableEditItems(int first, int last, bool enabled);
    void EnablePrinting(bool enabled);  // Print and Save As Text File

    // Called after each change; the main window repaints its menus.
    std::function<void()> Changed = {};

private:
    MenuItem* Find(std::string_view name);
    void Give(const std::string& name, std::string_view parent, std::string_view before,
              std::string_view caption);
    void Notify() const;

    std::vector<MenuItem> items_ = {};
};

extern MenuTable Menus;

std::string EditItemName(int index);   // "mnudispeditsubs(0)"
std::string LowerItemName(int index);  // "mnudispeditsubslower(0)"
