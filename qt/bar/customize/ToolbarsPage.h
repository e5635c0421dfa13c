#pragma once
#include "commands/Customization.h"

#include <QWidget>

class QListWidget;
class QListWidgetItem;
class QPushButton;

namespace tessa::qt {

/// The page of the customisation dialog on which toolbars are shown, hidden, made and reset.
class ToolbarsPage final : public QWidget {
    Q_OBJECT

public:
    /// The customisation outlives it.
    explicit ToolbarsPage(Customization& custom, QWidget* parent = nullptr);

    void Refresh();

private:
    QPushButton* AddButton(const char* name, const QString& caption, void (ToolbarsPage::*click)());
    [[nodiscard]] Band* Current() const;
    void ShowButtons();
    void SelectLast();
    void OnChecked(QListWidgetItem* item);
    void New();
    void Rename();
    void Delete();
    void Reset();
    void ResetAll();

    Customization& m_custom;
    QListWidget* m_list;
    QWidget* m_column;
    QPushButton* m_rename = nullptr;
    QPushButton* m_delete = nullptr;
    QPushButton* m_reset = nullptr;
};

} // namespace tessa::qt
