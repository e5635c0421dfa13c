#pragma once
#include "commands/Customization.h"

#include <QWidget>

class QComboBox;
class QGridLayout;
class QLabel;
class QListWidget;
class QPushButton;

namespace tessa::qt {

class BandList;

/// The page of the customisation dialog from which commands are dragged onto bars and menus, or put there by buttons.
class CommandsPage final : public QWidget {
    Q_OBJECT

public:
    /// The customisation outlives it.
    explicit CommandsPage(Customization& custom, QWidget* parent = nullptr);

    void Refresh();

private:
    class CommandList;
    void LayOut();
    void SizeLists();
    QWidget* Buttons();
    QPushButton* MakeButton(const char* name, const QString& caption, void (CommandsPage::*click)());
    void ShowCommands();
    void ShowBands();
    void ShowBand();
    void ShowButtons();
    [[nodiscard]] std::shared_ptr<Tool> Command() const;
    [[nodiscard]] Band* CurrentBand() const;
    void AddCommand();
    void RemoveEntry();
    void MoveUp();
    void MoveDown();
    void ToggleGroup();

    Customization& m_custom;
    QListWidget* m_categories;
    CommandList* m_commands;
    QLabel* m_description;
    QComboBox* m_bands;
    BandList* m_entries;
    QPushButton *m_add, *m_remove, *m_up, *m_down, *m_group;
};

} // namespace tessa::qt
