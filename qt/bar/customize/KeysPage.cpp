#include "qt/bar/customize/KeysPage.h"

#include "qt/bar/customize/KeyBox.h"
#include "qt/bar/customize/ResetQuestion.h"
#include "qt/base/Icons.h"
#include "qt/base/Strings.h"

#include <QGridLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTreeWidget>

namespace tessa::qt {

namespace {

constexpr int kTitleColumn = 0, kCategoryColumn = 1, kKeysColumn = 2;
constexpr int kPresentKeysShown = 3;

void NameKeyWidget(QWidget& widget, const char* name, const QString& accessibleName) {
    widget.setObjectName(QString::fromLatin1(name));
    widget.setAccessibleName(accessibleName);
}

QLabel* KeyLabelFor(QWidget& widget, const QString& caption) {
    auto* label = new QLabel(caption);
    label->setBuddy(&widget);
    return label;
}

} // namespace

KeysPage::KeysPage(Customization& custom, QWidget* parent)
    : QWidget(parent),
      m_custom(custom),
      m_choices(custom),
      m_search(new QLineEdit),
      m_list(new QTreeWidget),
      m_keys(new QListWidget),
      m_box(new KeyBox),
      m_verdict(new QLabel),
      m_assign(MakeButton("cmdAssign", QStringLiteral("&Assign"), &KeysPage::Assign)),
      m_remove(MakeButton("cmdRemoveKey", QStringLiteral("&Remove"), &KeysPage::Remove)),
      m_reset(MakeButton("cmdResetKeys", QStringLiteral("R&eset"), &KeysPage::Reset)),
      m_resetAll(MakeButton("cmdResetAllKeys", QStringLiteral("Reset All Ke&ys..."), &KeysPage::ResetAll)) {
    NameKeyWidget(*m_search, "txtSearchKeys", QStringLiteral("Search commands and keys"));
    NameKeyWidget(*m_list, "lstKeyCommands", QStringLiteral("Commands and their keys"));
    NameKeyWidget(*m_keys, "lstPresentKeys", QStringLiteral("Present keys of the command"));
    NameKeyWidget(*m_box, "txtNewKeys", QStringLiteral("New keys"));
    NameKeyWidget(*m_verdict, "lblVerdict", {});
    LayOut();
    Listen();
    ShowRows();
    m_list->setCurrentItem(m_list->topLevelItem(0));
    setFocusProxy(m_search);
}

void KeysPage::SetLooks() {
    m_search->setClearButtonEnabled(true);
    m_search->setPlaceholderText(QStringLiteral("Words of a command, or its keys"));
    m_list->setHeaderLabels({QStringLiteral("Command"), QStringLiteral("Category"), QStringLiteral("Keys")});
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setMinimumHeight(fontMetrics().height() * 12);
    m_list->header()->setSectionResizeMode(kTitleColumn, QHeaderView::Stretch);
    m_list->header()->setSectionResizeMode(kKeysColumn, QHeaderView::ResizeToContents);
    m_keys->setFixedHeight(fontMetrics().lineSpacing() * (kPresentKeysShown + 1));
    m_verdict->setWordWrap(true);
    m_verdict->setTextFormat(Qt::PlainText);
    m_verdict->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    m_verdict->setMinimumHeight(fontMetrics().lineSpacing() * 2);
}

void KeysPage::LayOut() {
    SetLooks();
    auto* grid = new QGridLayout(this);
    grid->addWidget(KeyLabelFor(*m_search, QStringLiteral("&Search:")), 0, 0);
    grid->addWidget(m_search, 0, 1, 1, 2);
    grid->addWidget(KeyLabelFor(*m_list, QStringLiteral("Co&mmands:")), 1, 0, Qt::AlignTop);
    grid->addWidget(m_list, 1, 1, 1, 2);
    grid->addWidget(KeyLabelFor(*m_keys, QStringLiteral("&Present keys:")), 2, 0, Qt::AlignTop);
    grid->addWidget(m_keys, 2, 1, 2, 1);
    grid->addWidget(m_remove, 2, 2, Qt::AlignTop);
    grid->addWidget(m_reset, 3, 2, Qt::AlignTop);
    grid->addWidget(KeyLabelFor(*m_box, QStringLiteral("&New keys:")), 4, 0);
    grid->addWidget(m_box, 4, 1);
    grid->addWidget(m_assign, 4, 2);
    grid->addWidget(m_verdict, 5, 1);
    grid->addWidget(m_resetAll, 5, 2, Qt::AlignTop);
    grid->setRowStretch(1, 1);
    grid->setColumnStretch(1, 1);
}

void KeysPage::Listen() {
    m_search->installEventFilter(this);
    connect(m_search, &QLineEdit::textChanged, this, &KeysPage::ShowRows);
    connect(m_list, &QTreeWidget::currentItemChanged, this, [this] {
        ShowKeys();
        ShowVerdict();
    });
    connect(m_list, &QTreeWidget::itemActivated, this, [this] { m_box->setFocus(); });
    connect(m_keys, &QListWidget::currentRowChanged, this, [this] { m_remove->setEnabled(CurrentKey().has_value()); });
    m_connections += m_box->Changed.Connect([this] { ShowVerdict(); });
    m_connections += m_box->Entered.Connect([this] { Assign(); });
    m_connections += m_custom.Bar().Combinations.Changed.Connect([this] { ShowRows(); });
}

QPushButton* KeysPage::MakeButton(const char* name, const QString& caption, void (KeysPage::*click)()) {
    auto* button = new QPushButton(caption);
    button->setObjectName(QString::fromLatin1(name));
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, click);
    return button;
}

// From the words of the search straight to what they have found.
bool KeysPage::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Down || key == Qt::Key_Return || key == Qt::Key_Enter) {
            m_list->setFocus();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void KeysPage::Refresh() {
    ShowRows();
    ShowVerdict();
}

void KeysPage::ShowRows() {
    const auto current = Current();
    {
        const QSignalBlocker quiet(m_list);
        m_rows = m_choices.Rows(FromQt(m_search->text()));
        const auto count = static_cast<int>(m_rows.size());
        // Not cleared: a screen reader would lose its place.
        while (m_list->topLevelItemCount() > count) delete m_list->takeTopLevelItem(m_list->topLevelItemCount() - 1);
        while (m_list->topLevelItemCount() < count) m_list->addTopLevelItem(new QTreeWidgetItem);
        QTreeWidgetItem* selected = m_list->topLevelItem(0);
        for (int row = 0; row < count; ++row) {
            const KeyRow& shown = m_rows[static_cast<std::size_t>(row)];
            ShowRow(*m_list->topLevelItem(row), shown);
            if (shown.Item == current) selected = m_list->topLevelItem(row);
        }
        m_list->setCurrentItem(selected);
    }
    if (QTreeWidgetItem* selected = m_list->currentItem()) m_list->scrollToItem(selected);
    ShowKeys();
    ShowVerdict();
}

void KeysPage::ShowRow(QTreeWidgetItem& item, const KeyRow& row) const {
    item.setIcon(kTitleColumn, Icons::OfOrBlank(row.Item->Image));
    item.setText(kTitleColumn, ToQt(row.Title));
    item.setText(kCategoryColumn, ToQt(row.Category));
    item.setText(kKeysColumn, ToQt(row.Keys));
    QFont keys = m_list->font();
    keys.setBold(row.Changed);
    item.setFont(kKeysColumn, keys);
    item.setToolTip(kKeysColumn, row.Changed ? QStringLiteral("Not as designed") : QString());
}

std::shared_ptr<Tool> KeysPage::Current() const {
    const auto row = static_cast<std::size_t>(m_list->indexOfTopLevelItem(m_list->currentItem()));
    return row < m_rows.size() ? m_rows[row].Item : nullptr;
}

void KeysPage::ShowKeys() {
    const auto tool = Current();
    m_keys->clear();
    const auto keys = tool ? m_choices.KeysOf(*tool) : std::vector<KeyStroke>();
    for (const KeyStroke key : keys) m_keys->addItem(ToQt(KeyWords::Shown(key)));
    const auto fixed = tool ? m_choices.FixedKeysOf(*tool) : std::vector<KeyStroke>();
    for (const KeyStroke key : fixed) m_keys->addItem(ToQt(KeyWords::Shown(key)) + QStringLiteral(" (stays)"));
    m_keys->setCurrentRow(0);
    m_remove->setEnabled(CurrentKey().has_value());
    m_reset->setEnabled(tool && m_choices.IsChanged(*tool));
    m_resetAll->setEnabled(m_choices.AnyChanged());
}

std::optional<KeyStroke> KeysPage::CurrentKey() const {
    const auto tool = Current();
    const auto keys = tool ? m_choices.KeysOf(*tool) : std::vector<KeyStroke>();
    const auto row = static_cast<std::size_t>(m_keys->currentRow());
    return row < keys.size() ? std::optional(keys[row]) : std::nullopt;
}

void KeysPage::ShowVerdict() {
    const auto tool = Current();
    const auto key = m_box->Recorded();
    const KeyVerdict verdict = tool && key ? m_choices.Judge(*tool, *key) : KeyVerdict();
    m_assign->setEnabled(verdict.Accepted);
    Say(verdict.Words);
}

void KeysPage::Say(const Text& words) {
    m_verdict->setText(ToQt(words));
    // For who does not see the line below the box.
    m_box->setAccessibleDescription(ToQt(words));
}

void KeysPage::Assign() {
    const auto tool = Current();
    const auto key = m_box->Recorded();
    if (!tool || !key || !m_choices.Judge(*tool, *key).Accepted) return;
    m_choices.Assign(*tool, *key);
    m_box->Empty();
    m_box->setFocus();
}

void KeysPage::Remove() {
    const auto tool = Current();
    const auto key = CurrentKey();
    if (tool && key) m_choices.Remove(*tool, *key);
}

void KeysPage::Reset() {
    const auto tool = Current();
    if (!tool) return;
    const Text told = m_choices.Reset(*tool);
    if (!told.empty()) Say(told);
}

void KeysPage::ResetAll() {
    if (ConfirmReset(*this, QStringLiteral("Reset All Keys"),
                     QStringLiteral("All commands get the keys back that they were designed with.")))
        m_choices.ResetAll();
}

} // namespace tessa::qt
