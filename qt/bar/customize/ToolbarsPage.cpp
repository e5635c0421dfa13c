#include "qt/bar/customize/ToolbarsPage.h"

#include "qt/bar/customize/ResetQuestion.h"
#include "qt/bar/customize/ToolbarName.h"
#include "qt/base/Strings.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace tessa::qt {

namespace {

void ShowChecked(QListWidgetItem& item, const Band& band) {
    item.setText(ToQt(band.Caption()));
    item.setData(Qt::UserRole, ToQt(band.Name()));
    item.setFlags(item.flags().setFlag(Qt::ItemIsUserCheckable, Customization::MayHide(band)));
    item.setCheckState(band.Visible() ? Qt::Checked : Qt::Unchecked);
}

} // namespace

ToolbarsPage::ToolbarsPage(Customization& custom, QWidget* parent)
    : QWidget(parent), m_custom(custom), m_list(new QListWidget), m_column(new QWidget) {
    m_list->setObjectName(QStringLiteral("lstToolbars"));
    m_list->setAccessibleName(QStringLiteral("Toolbars"));
    auto* label = new QLabel(QStringLiteral("Tool&bars to show:"));
    label->setBuddy(m_list);
    auto* left = new QVBoxLayout;
    left->addWidget(label);
    left->addWidget(m_list);
    auto* buttons = new QVBoxLayout(m_column);
    buttons->setContentsMargins({});
    AddButton("cmdNew", QStringLiteral("&New..."), &ToolbarsPage::New);
    m_rename = AddButton("cmdRename", QStringLiteral("Rena&me..."), &ToolbarsPage::Rename);
    m_delete = AddButton("cmdDelete", QStringLiteral("&Delete"), &ToolbarsPage::Delete);
    buttons->addStretch();
    m_reset = AddButton("cmdReset", QStringLiteral("&Reset"), &ToolbarsPage::Reset);
    AddButton("cmdResetAll", QStringLiteral("Reset &All..."), &ToolbarsPage::ResetAll);
    auto* columns = new QHBoxLayout(this);
    columns->addLayout(left, 1);
    columns->addWidget(m_column);
    connect(m_list, &QListWidget::itemChanged, this, &ToolbarsPage::OnChecked);
    connect(m_list, &QListWidget::currentRowChanged, this, &ToolbarsPage::ShowButtons);
    setFocusProxy(m_list);
    Refresh();
    m_list->setCurrentRow(0);
}

QPushButton* ToolbarsPage::AddButton(const char* name, const QString& caption, void (ToolbarsPage::*click)()) {
    auto* button = new QPushButton(caption);
    button->setObjectName(QString::fromLatin1(name));
    button->setAutoDefault(false);
    m_column->layout()->addWidget(button);
    connect(button, &QPushButton::clicked, this, click);
    return button;
}

void ToolbarsPage::Refresh() {
    const QSignalBlocker quiet(m_list);
    const std::vector<Band*> bands = m_custom.Toolbars();
    const auto count = static_cast<int>(bands.size());
    // Not cleared: the user may be ticking one of them.
    while (m_list->count() > count) delete m_list->takeItem(m_list->count() - 1);
    while (m_list->count() < count) m_list->addItem(QString());
    for (int row = 0; row < count; ++row) ShowChecked(*m_list->item(row), *bands[static_cast<std::size_t>(row)]);
    ShowButtons();
}

Band* ToolbarsPage::Current() const {
    const QListWidgetItem* item = m_list->currentItem();
    return item ? m_custom.Bar().FindBand(FromQt(item->data(Qt::UserRole).toString())) : nullptr;
}

void ToolbarsPage::ShowButtons() {
    const Band* band = Current();
    m_rename->setEnabled(band && band->IsUserMade());
    m_delete->setEnabled(band && band->IsUserMade());
    m_reset->setEnabled(band && !band->IsUserMade());
}

void ToolbarsPage::OnChecked(QListWidgetItem* item) {
    Band* band = m_custom.Bar().FindBand(FromQt(item->data(Qt::UserRole).toString()));
    if (band) m_custom.Show(*band, item->checkState() == Qt::Checked);
}

void ToolbarsPage::SelectLast() {
    m_list->setCurrentRow(m_list->count() - 1);
    m_list->setFocus();
}

void ToolbarsPage::New() {
    const auto name = AskToolbarName(*this, QStringLiteral("New Toolbar"), Text(),
                                     [this](TextView caption) { return m_custom.Refusal(caption); });
    if (name && m_custom.New(*name)) SelectLast();
}

void ToolbarsPage::Rename() {
    Band* band = Current();
    if (!band) return;
    const auto name = AskToolbarName(*this, QStringLiteral("Rename Toolbar"), band->Caption(),
                                     [&](TextView caption) { return m_custom.Refusal(caption, band); });
    if (name && band == Current()) m_custom.Rename(*band, *name);
}

void ToolbarsPage::Delete() {
    if (Band* band = Current()) m_custom.Delete(*band);
}

void ToolbarsPage::Reset() {
    if (Band* band = Current()) m_custom.Reset(*band);
}

void ToolbarsPage::ResetAll() {
    if (ConfirmReset(*this, QStringLiteral("Reset All"),
                     QStringLiteral("All toolbars, menus and keys go back to how they were designed, and toolbars of "
                                    "your own are deleted.")))
        m_custom.ResetAll();
}

} // namespace tessa::qt
