#include "qt/bar/customize/CommandsPage.h"

#include "qt/bar/customize/BandList.h"
#include "qt/bar/customize/ToolMime.h"
#include "qt/base/Icons.h"
#include "qt/base/Strings.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace tessa::qt {

namespace {

constexpr int kCommandIconSize = 16;

void NameWidget(QWidget& widget, const char* name, const QString& accessibleName) {
    widget.setObjectName(QString::fromLatin1(name));
    widget.setAccessibleName(accessibleName);
}

QLabel* LabelFor(QWidget& widget, const QString& caption) {
    auto* label = new QLabel(caption);
    label->setBuddy(&widget);
    return label;
}

} // namespace

/// The commands of a category, which are dragged out of it.
class CommandsPage::CommandList final : public QListWidget {
public:
    explicit CommandList(const Customization& custom) : m_custom(custom) {
        setIconSize({kCommandIconSize, kCommandIconSize});
        setDragEnabled(true);
        setDragDropMode(QAbstractItemView::DragOnly);
    }

    std::vector<std::shared_ptr<Tool>> Shown;

protected:
    void startDrag(Qt::DropActions) override {
        const auto row = static_cast<std::size_t>(currentRow());
        if (row < Shown.size()) ToolMime::Drag(*this, m_custom.Bar(), {Shown[row]});
    }

private:
    const Customization& m_custom;
};

CommandsPage::CommandsPage(Customization& custom, QWidget* parent)
    : QWidget(parent),
      m_custom(custom),
      m_categories(new QListWidget),
      m_commands(new CommandList(custom)),
      m_description(new QLabel),
      m_bands(new QComboBox),
      m_entries(new BandList(custom)) {
    NameWidget(*m_categories, "lstCategories", QStringLiteral("Categories"));
    NameWidget(*m_commands, "lstCommands", QStringLiteral("Commands"));
    NameWidget(*m_bands, "cboBands", QStringLiteral("Toolbar or menu"));
    NameWidget(*m_entries, "lstEntries", QStringLiteral("Tools on it"));
    NameWidget(*m_description, "lblDescription", {});
    LayOut();
    for (const Text& category : m_custom.Categories()) m_categories->addItem(ToQt(category));
    connect(m_categories, &QListWidget::currentRowChanged, this, &CommandsPage::ShowCommands);
    connect(m_commands, &QListWidget::currentRowChanged, this, &CommandsPage::ShowButtons);
    connect(m_commands, &QListWidget::itemActivated, this, &CommandsPage::AddCommand);
    connect(m_bands, &QComboBox::currentIndexChanged, this, &CommandsPage::ShowBand);
    connect(m_entries, &QListWidget::currentRowChanged, this, &CommandsPage::ShowButtons);
    ShowBands();
    ShowBand();
    m_categories->setCurrentRow(1);
    setFocusProxy(m_categories);
}

void CommandsPage::LayOut() {
    auto* grid = new QGridLayout(this);
    grid->addWidget(LabelFor(*m_categories, QStringLiteral("Cate&gories:")), 0, 0);
    grid->addWidget(LabelFor(*m_commands, QStringLiteral("Co&mmands:")), 0, 1);
    grid->addWidget(LabelFor(*m_bands, QStringLiteral("Tool&bar or menu:")), 0, 3);
    grid->addWidget(m_categories, 1, 0, 2, 1);
    grid->addWidget(m_commands, 1, 1, 2, 1);
    grid->addWidget(Buttons(), 1, 2, 2, 1);
    grid->addWidget(m_bands, 1, 3);
    grid->addWidget(m_entries, 2, 3);
    auto* hint = new QLabel(QStringLiteral("Drag commands onto any toolbar or menu of the window. While this window is "
                                           "open, tools can be dragged from one "
                                           "place to another, and off the toolbars to remove them."));
    for (QLabel* text : {m_description, hint}) {
        text->setWordWrap(true);
        text->setTextFormat(Qt::PlainText);
    }
    m_description->setMinimumHeight(m_description->fontMetrics().height());
    grid->addWidget(m_description, 3, 0, 1, 4);
    grid->addWidget(hint, 4, 0, 1, 4);
    grid->setRowStretch(2, 1);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 1);
    SizeLists();
}

void CommandsPage::SizeLists() {
    const int letter = fontMetrics().averageCharWidth();
    m_categories->setFixedWidth(letter * 18);
    m_commands->setMinimumWidth(letter * 32);
    m_entries->setMinimumSize(letter * 32, fontMetrics().height() * 14);
}

QPushButton* CommandsPage::MakeButton(const char* name, const QString& caption, void (CommandsPage::*click)()) {
    auto* button = new QPushButton(caption);
    button->setObjectName(QString::fromLatin1(name));
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, click);
    return button;
}

QWidget* CommandsPage::Buttons() {
    m_add = MakeButton("cmdAdd", QStringLiteral("&Add"), &CommandsPage::AddCommand);
    m_remove = MakeButton("cmdRemove", QStringLiteral("&Remove"), &CommandsPage::RemoveEntry);
    m_up = MakeButton("cmdUp", QStringLiteral("Move &Up"), &CommandsPage::MoveUp);
    m_down = MakeButton("cmdDown", QStringLiteral("Move &Down"), &CommandsPage::MoveDown);
    m_group = MakeButton("cmdGroup", QStringLiteral("&Separator Before"), &CommandsPage::ToggleGroup);
    m_group->setCheckable(true);
    auto* column = new QWidget;
    auto* rows = new QVBoxLayout(column);
    rows->setContentsMargins({});
    for (QPushButton* button : {m_add, m_remove, m_up, m_down, m_group}) rows->addWidget(button);
    rows->addStretch();
    return column;
}

void CommandsPage::ShowCommands() {
    auto& list = *m_commands;
    const QListWidgetItem* category = m_categories->currentItem();
    list.clear();
    list.Shown = category ? m_custom.Commands(FromQt(category->text())) : std::vector<std::shared_ptr<Tool>>();
    for (const auto& tool : list.Shown)
        list.addItem(new QListWidgetItem(Icons::OfOrBlank(tool->Image), ToQt(Customization::TitleOf(*tool))));
    list.setCurrentRow(0);
}

void CommandsPage::ShowBands() {
    const QSignalBlocker quiet(m_bands);
    const QVariant current = m_bands->currentData();
    m_bands->clear();
    for (const Band* band : m_custom.Bands()) m_bands->addItem(ToQt(m_custom.TitleOf(*band)), ToQt(band->Name()));
    m_bands->setCurrentIndex(std::max(m_bands->findData(current), 0));
}

void CommandsPage::ShowBand() {
    if (const Band* band = CurrentBand()) m_entries->ShowBand(*band);
    ShowButtons();
}

void CommandsPage::Refresh() {
    ShowBands();
    if (CurrentBand() == m_entries->Shown())
        m_entries->Refresh();
    else
        ShowBand();
    ShowButtons();
}

std::shared_ptr<Tool> CommandsPage::Command() const {
    const auto& shown = m_commands->Shown;
    const auto row = static_cast<std::size_t>(m_commands->currentRow());
    return row < shown.size() ? shown[row] : nullptr;
}

Band* CommandsPage::CurrentBand() const { return m_custom.Bar().FindBand(FromQt(m_bands->currentData().toString())); }

void CommandsPage::ShowButtons() {
    const auto command = Command();
    const Band* band = CurrentBand();
    const int row = m_entries->currentRow();
    // The description of a link is its keyword.
    const bool link = command && (command->Category == u"Shop" || command->Category == u"Find");
    m_description->setText(command && !link ? ToQt(command->Description) : QString());
    m_add->setEnabled(command && band && m_custom.Accepts(*band, *command));
    m_remove->setEnabled(row >= 0);
    m_up->setEnabled(row > 0);
    m_down->setEnabled(row >= 0 && row + 1 < m_entries->count());
    m_group->setEnabled(row > 0);
    const bool listed = band && row >= 0 && static_cast<std::size_t>(row) < band->Entries().size();
    m_group->setChecked(listed && band->Entries()[static_cast<std::size_t>(row)].Group == BeginGroup::Yes);
}

void CommandsPage::AddCommand() {
    Band* band = CurrentBand();
    const auto command = Command();
    if (!band || !command) return;
    m_custom.Add(*band, static_cast<std::size_t>(m_entries->currentRow() + 1), command);
    for (int row = 0; row < m_entries->count(); ++row) {
        if (band->Entries()[static_cast<std::size_t>(row)].Item == command) m_entries->setCurrentRow(row);
    }
}

void CommandsPage::RemoveEntry() {
    if (Band* band = CurrentBand()) m_custom.Remove(*band, static_cast<std::size_t>(m_entries->currentRow()));
}

void CommandsPage::MoveUp() {
    const int row = m_entries->currentRow();
    Band* band = CurrentBand();
    if (!band || row < 1) return;
    m_custom.MoveUp(*band, static_cast<std::size_t>(row));
    m_entries->setCurrentRow(row - 1);
}

void CommandsPage::MoveDown() {
    const int row = m_entries->currentRow();
    Band* band = CurrentBand();
    if (!band || row < 0) return;
    m_custom.MoveDown(*band, static_cast<std::size_t>(row));
    m_entries->setCurrentRow(row + 1);
}

void CommandsPage::ToggleGroup() {
    if (Band* band = CurrentBand()) m_custom.ToggleGroup(*band, static_cast<std::size_t>(m_entries->currentRow()));
}

} // namespace tessa::qt
