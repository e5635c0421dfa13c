#include "qt/dialogs/GroupEditor.h"

#include "qt/base/Bind.h"
#include "qt/base/ChoiceBinding.h"
#include "qt/base/FormRows.h"
#include "qt/base/Palette.h"
#include "qt/base/Strings.h"
#include "qt/dialogs/GroupList.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QPointer>
#include <QPushButton>
#include <QShortcut>
#include <array>

namespace tessa::qt {

namespace {
constexpr int kEditorWidth = 680;
constexpr int kSwatch = 12;

QIcon Swatch(TabColour colour) {
    QPixmap square(kSwatch, kSwatch);
    square.fill(Palette::MarkColour(colour));
    return square;
}

} // namespace

GroupEditor::GroupEditor(frmTessaGroup& form, QWidget* parent)
    : QDialog(parent), m_form(form), m_formHeight(ToPixels(frmTessaGroup::kCollapsed).value) {
    setObjectName(QStringLiteral("frmTessaGroup"));
    setWindowTitle(ToQt(form.Caption));
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(Name());
    rows->addWidget(Entries(), 1);
    rows->addWidget(Manner());
    rows->addWidget(Buttons());
    m_entry = Entry();
    rows->addWidget(m_entry);
    findChild<QLabel*>(QStringLiteral("Label1"))->setBuddy(m_list);
    AddListKeys();
    m_connections += form.Frame1.Visible.Attach([this](bool visible) { ShowEntry(visible); });
    resize(kEditorWidth, m_formHeight);
    m_connections += form.Height.Attach([this](Twips height) { ShowHeight(height); });
    Bind(form.Form, *this, form.cmdCancel);
    m_list->setFocus();
}

QWidget* GroupEditor::Name() {
    auto* row = new QWidget;
    auto* caption = new QLabel;
    auto* name = new QLabel;
    Bind(m_form.Label1, *caption, QStringLiteral("Label1"), u'G');
    Bind(m_form.lblTessaGroupName, *name, QStringLiteral("lblTessaGroupName"));
    // However long the name is, it does not make the window wider.
    name->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    name->setToolTip(QStringLiteral("<span>%1</span>").arg(name->text().toHtmlEscaped()));
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(caption);
    layout->addWidget(name, 1);
    return row;
}

QPushButton* GroupEditor::Add(QBoxLayout& row, Button& button, const char* name, char16_t accessKey) {
    auto* widget = new QPushButton;
    Bind(button, *widget, QString::fromLatin1(name), accessKey);
    row.addWidget(widget);
    return widget;
}

QWidget* GroupEditor::Entries() {
    auto* row = new QWidget;
    m_list = new GroupList(m_form);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_list, 1);
    auto* column = new QVBoxLayout;
    layout->addLayout(column);
    Add(*column, m_form.cmdUp, "cmdUp", u'U');
    Add(*column, m_form.cmdDown, "cmdDown", u'D');
    Add(*column, m_form.cmdInsert, "cmdInsert", u'I');
    Add(*column, m_form.cmdUpdate, "cmdUpdate", u'P');
    Add(*column, m_form.cmdDelete, "cmdDelete", u'L');
    column->addStretch();
    return row;
}

QWidget* GroupEditor::Manner() {
    auto* row = new QWidget;
    auto* colours = new QComboBox;
    auto* caption = new QLabel(WithAccessKey(ToQt(m_form.cboColour.Caption), u'B'));
    caption->setBuddy(colours);
    Bind(m_form.cboColour, *colours, QStringLiteral("cboColour"));
    for (int index = 1; index < colours->count(); ++index)
        colours->setItemIcon(index, Swatch(static_cast<TabColour>(index)));
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(caption);
    layout->addWidget(colours);
    layout->addSpacing(layout->spacing());
    layout->addWidget(NewCheckBox(m_form.chkBehind, "chkBehind", u'N'));
    layout->addWidget(NewCheckBox(m_form.chkCloseOthers, "chkCloseOthers", u'S'));
    layout->addWidget(NewCheckBox(m_form.chkKeepPanes, "chkKeepPanes", u'K'));
    layout->addStretch();
    return row;
}

QWidget* GroupEditor::Buttons() {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    Add(*layout, m_form.cmdCheck, "cmdCheck", u'K');
    Add(*layout, m_form.cmdCompare, "cmdCompare", u'M');
    layout->addStretch();
    m_ok = Add(*layout, m_form.cmdOK, "cmdOK", u'O');
    Add(*layout, m_form.cmdCancel, "cmdCancel", u'C');
    return row;
}

QFrame* GroupEditor::Entry() {
    auto* frame = new QFrame;
    frame->setObjectName(QStringLiteral("Frame1"));
    auto* label = new QLabel;
    auto* url = new QLineEdit;
    label->setBuddy(url);
    Bind(m_form.Label2, *label, QStringLiteral("Label2"), u'R');
    Bind(m_form.txtUrl, *url, QStringLiteral("txtUrl"), label->accessibleName());
    auto* layout = new QHBoxLayout(frame);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(label);
    layout->addWidget(url, 1);
    m_commit = Add(*layout, m_form.cmdUrlInsert, "cmdUrlInsert", u'T');
    auto* cancel = Add(*layout, m_form.Cancel, "Cancel", u'A');
    auto* escape = new QShortcut(Qt::Key_Escape, frame);
    escape->setContext(Qt::WidgetWithChildrenShortcut);
    connect(escape, &QShortcut::activated, cancel, &QPushButton::click);
    return frame;
}

// What the buttons beside the list do, without leaving it.
void GroupEditor::AddListKeys() {
    struct ListKey {
        QKeySequence key;
        const char* button;
    };
    const std::array keys{ListKey{Qt::CTRL | Qt::Key_Up, "cmdUp"}, ListKey{Qt::CTRL | Qt::Key_Down, "cmdDown"},
                          ListKey{Qt::Key_Insert, "cmdInsert"}, ListKey{Qt::Key_F2, "cmdUpdate"},
                          ListKey{Qt::Key_Delete, "cmdDelete"}};
    for (const ListKey& each : keys) {
        auto* button = findChild<QPushButton*>(QString::fromLatin1(each.button));
        auto* shortcut = new QShortcut(each.key, m_list);
        shortcut->setContext(Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, button, &QPushButton::click);
    }
}

void GroupEditor::ShowEntry(bool visible) {
    m_entry->setVisible(visible);
    // Enter commits what is being entered, else it saves.
    (visible ? m_commit : m_ok)->setDefault(true);
}

void GroupEditor::ShowHeight(Twips height) {
    // What the user, or a large font, has added stays.
    const int added = this->height() - m_formHeight;
    m_formHeight = ToPixels(height).value;
    layout()->activate();
    resize(width(), m_formHeight + added);
}

void ShowModal(frmTessaGroup& form, QWidget* parent) {
    const QPointer<GroupEditor> editor = new GroupEditor(form, parent);
    ShowModal(form.Form, *editor);
    delete editor;
}

} // namespace tessa::qt
