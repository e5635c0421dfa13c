#include "qt/dialogs/TaskViewPresenter.h"

#include "qt/base/Bind.h"
#include "qt/base/FormRows.h"
#include "qt/base/ItemRows.h"
#include "qt/base/Strings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <array>
#include <chrono>

namespace tessa::qt {

namespace {

constexpr std::chrono::seconds kFiguresRefresh{1};
constexpr QSize kUsualTaskViewSize{860, 420};
constexpr std::array kWidths{230, 230, 160, 100};

TaskColumn ColumnOf(int section) { return static_cast<TaskColumn>(section); }

void AlignNumbers(QTreeWidgetItem& item) {
    for (const TaskColumn column : {TaskColumn::Memory, TaskColumn::Processor})
        item.setTextAlignment(static_cast<int>(column), Qt::AlignRight | Qt::AlignVCenter);
}

void FillRow(QTreeWidgetItem& item, const TaskLine& line) {
    for (int column = 0; column < static_cast<int>(line.Cells.size()); ++column)
        ShowCell(item, column, ToQt(line.Cell(ColumnOf(column))));
    AlignNumbers(item);
}

} // namespace

TaskDialog::TaskDialog(frmTaskView& form, QWidget* parent) : QDialog(parent), m_form(form), m_tasks(new QTreeWidget) {
    setObjectName(QStringLiteral("frmTaskView"));
    setWindowTitle(ToQt(form.Caption));
    MakeTasks();
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(m_tasks, 1);
    rows->addLayout(Sorting());
    rows->addWidget(NewLabel(m_form.lblShared, "lblShared"));
    rows->addWidget(NewLabel(m_form.lblDrawing, "lblDrawing"));
    rows->addWidget(Buttons());
    BindTasks();
    connect(this, &QDialog::rejected, this, [this] { m_form.Form.Visible = false; });
    resize(kUsualTaskViewSize.expandedTo(minimumSizeHint()));
    m_tasks->setFocus();
}

void TaskDialog::MakeTasks() {
    m_tasks->setObjectName(QStringLiteral("lstTasks"));
    m_tasks->setAccessibleName(QStringLiteral("Tabs"));
    QStringList headings;
    for (const TextView heading : frmTaskView::kHeadings) headings << ToQt(heading);
    m_tasks->setHeaderLabels(headings);
    AlignNumbers(*m_tasks->headerItem());
    m_tasks->setRootIsDecorated(false);
    m_tasks->setUniformRowHeights(true);
    m_tasks->setAlternatingRowColors(true);
    m_tasks->setAllColumnsShowFocus(true);
    m_tasks->installEventFilter(this);
    auto* header = m_tasks->header();
    header->setSectionsClickable(true);
    header->setSortIndicatorShown(true);
    for (int column = 0; column < static_cast<int>(kWidths.size()); ++column)
        header->resizeSection(column, kWidths.at(static_cast<std::size_t>(column)));
    connect(header, &QHeaderView::sectionClicked, this, [this](int section) { m_form.SortBy(ColumnOf(section)); });
}

// What a click on a heading does, for the keyboard.
QHBoxLayout* TaskDialog::Sorting() {
    auto* column = new QComboBox;
    auto* descending = new QCheckBox(QStringLiteral("&Descending"));
    auto* caption = new QLabel(QStringLiteral("&Sort by"));
    column->setObjectName(QStringLiteral("cboSort"));
    column->setAccessibleName(QStringLiteral("Sort by"));
    descending->setObjectName(QStringLiteral("chkDescending"));
    caption->setBuddy(column);
    for (const TextView heading : frmTaskView::kHeadings) column->addItem(ToQt(heading));
    BindSorting(*column, *descending);
    auto* row = new QHBoxLayout;
    row->addWidget(caption);
    row->addWidget(column);
    row->addWidget(descending);
    row->addStretch();
    row->addWidget(NewLabel(m_form.lblTotal, "lblTotal"));
    return row;
}

void TaskDialog::BindSorting(QComboBox& column, QCheckBox& descending) {
    m_connections += m_form.Order.Attach([this, &column, &descending](const TaskOrder& order) {
        const int section = static_cast<int>(order.Column);
        const QSignalBlocker quietColumn(column), quietOrder(descending);
        column.setCurrentIndex(section);
        descending.setChecked(order.Descending);
        m_tasks->header()->setSortIndicator(section, order.Descending ? Qt::DescendingOrder : Qt::AscendingOrder);
    });
    connect(&column, &QComboBox::currentIndexChanged, this, [this](int section) {
        if (m_form.Order().Column != ColumnOf(section)) m_form.SortBy(ColumnOf(section));
    });
    connect(&descending, &QCheckBox::toggled, this, [this] { m_form.SortBy(m_form.Order().Column); });
}

QWidget* TaskDialog::Buttons() {
    return NewButtonRow({{m_form.cmdEnd, "cmdEnd", QDialogButtonBox::ActionRole},
                         {m_form.cmdGoTo, "cmdGoTo", QDialogButtonBox::ActionRole},
                         {m_form.cmdClose, "cmdClose", QDialogButtonBox::RejectRole}});
}

void TaskDialog::BindTasks() {
    BindRows(m_form.lstTasks, *m_tasks, m_connections, FillRow);
    connect(m_tasks, &QTreeWidget::itemDoubleClicked, this, [this] { m_form.lstTasks_DblClick(); });
}

bool TaskDialog::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        m_form.lstTasks_DblClick();
        return true;
    }
    if (key == Qt::Key_Delete && m_form.cmdEnd.Enabled()) {
        m_form.cmdEnd.Click();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

TaskViewPresenter::TaskViewPresenter(frmTaskView& form, QWidget& window) : m_form(form), m_window(window) {
    m_connections += m_form.ShowMainWindow.Connect([this] {
        m_window.raise();
        m_window.activateWindow();
    });
    m_connections += m_form.ShowItself.Connect([this] {
        if (!m_dialog) return;
        m_dialog->raise();
        m_dialog->activateWindow();
    });
    m_refresh.callOnTimeout(this, [this] { m_form.Refresh(); });
    m_connections += m_form.Form.Visible.Attach([this](bool visible) { Show(visible); });
}

TaskViewPresenter::~TaskViewPresenter() {
    m_connections.End();
    delete m_dialog;
}

void TaskViewPresenter::Show(bool visible) {
    if (visible) {
        if (!m_dialog) m_dialog = new TaskDialog(m_form, &m_window);
        m_dialog->show();
        m_refresh.start(kFiguresRefresh);
    } else {
        m_refresh.stop();
        if (m_dialog) m_dialog->hide();
    }
}

} // namespace tessa::qt
