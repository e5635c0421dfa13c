#pragma once
#include "common/CommandBar.h"

#include <QMainWindow>
#include <QObject>
#include <QPointer>
#include <functional>
#include <unordered_map>

class QAction;
class QtAddressBox;

/// Shows a `CommandBar` in a window's menus and toolbar: an action a tool, the address box for "cboAddress". The bar
/// and the window outlive it; it shows the tools that the bar has when it is made.
class QtCommandBar final : public QObject {
    Q_OBJECT

public:
    QtCommandBar(CommandBar& bar, QMainWindow& window);
    ~QtCommandBar() override;

    /// Nothing for a tool that the bar does not have.
    [[nodiscard]] QAction* Find(TextView name) const;
    [[nodiscard]] QtAddressBox* AddressBox() const;
    void FocusAddressBox();

    /// Enter was pressed in the address box, whose tool holds the text. Filled in by the owner.
    std::function<void()> AddressEntered;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void MakeAction(Tool& tool);
    void MakeMenus();
    void MakeToolBar();
    void ShowIcons();
    void OnTriggered(Tool& tool);

    CommandBar& m_bar;
    QMainWindow& m_window;
    std::unordered_map<Text, QAction*> m_actions; ///< by the tool's name
    QPointer<QtAddressBox> m_addressBox;
};
