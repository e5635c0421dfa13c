#pragma once
#include "commands/keys/KeyChoices.h"

#include <QWidget>

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace tessa::qt {

class KeyBox;

/// The page of the customisation dialog on which commands get other keys.
class KeysPage final : public QWidget {
    Q_OBJECT

public:
    /// The customisation outlives it.
    explicit KeysPage(Customization& custom, QWidget* parent = nullptr);

    void Refresh();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void SetLooks();
    void LayOut();
    void Listen();
    QPushButton* MakeButton(const char* name, const QString& caption, void (KeysPage::*click)());
    void ShowRows();
    void ShowRow(QTreeWidgetItem& item, const KeyRow& row) const;
    void ShowKeys();
    void ShowVerdict();
    void Say(const Text& words);
    [[nodiscard]] std::shared_ptr<Tool> Current() const;
    [[nodiscard]] std::optional<KeyStroke> CurrentKey() const;
    void Assign();
    void Remove();
    void Reset();
    void ResetAll();

    Customization& m_custom;
    KeyChoices m_choices;
    QLineEdit* m_search;
    QTreeWidget* m_list;
    QListWidget* m_keys;
    KeyBox* m_box;
    QLabel* m_verdict;
    QPushButton *m_assign, *m_remove, *m_reset, *m_resetAll;
    std::vector<KeyRow> m_rows;
    Connections m_connections;
};

} // namespace tessa::qt
