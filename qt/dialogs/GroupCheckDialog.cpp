#include "qt/dialogs/GroupCheckDialog.h"

#include "qt/base/Bind.h"
#include "qt/base/FormRows.h"
#include "qt/base/ItemRows.h"
#include "qt/base/Strings.h"

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QPointer>
#include <QSignalBlocker>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace tessa::qt {

namespace {

constexpr QSize kUsualCheckSize{860, 440};

void FillChecked(QTreeWidgetItem& item, const CheckedLine& line) {
    ShowCell(item, 0, ToQt(line.Health.address));
    ShowCell(item, 1, ToQt(WordsOf(line.Health)));
    ShowCell(item, 2, QFileInfo(ToQt(line.File)).completeBaseName());
    // Only what can be mended has a box to tick.
    item.setData(0, Qt::CheckStateRole,
                 line.Mends() ? QVariant(line.Ticked ? Qt::Checked : Qt::Unchecked) : QVariant());
}

} // namespace

GroupCheckDialog::GroupCheckDialog(frmGroupCheck& form, QWidget* parent)
    : QDialog(parent), m_form(form), m_list(new QTreeWidget) {
    setObjectName(QStringLiteral("frmGroupCheck"));
    setWindowTitle(ToQt(form.Caption));
    MakeList();
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(NewLabel(form.lblProgress, "lblProgress"));
    rows->addWidget(m_list, 1);
    rows->addWidget(Buttons());
    BindRows(m_form.lstLines, *m_list, m_connections, FillChecked);
    connect(m_list, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* item) {
        m_form.Tick(static_cast<std::size_t>(m_list->indexOfTopLevelItem(item)), item->checkState(0) == Qt::Checked);
    });
    Bind(form.Form, *this, form.cmdClose);
    resize(kUsualCheckSize.expandedTo(minimumSizeHint()));
    m_list->setFocus();
}

void GroupCheckDialog::MakeList() {
    m_list->setObjectName(QStringLiteral("lstLines"));
    m_list->setAccessibleName(QStringLiteral("Addresses"));
    m_list->setHeaderLabels(
        {QStringLiteral("Address"), QStringLiteral("What has become of it"), QStringLiteral("TessaGroup")});
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setAlternatingRowColors(true);
    m_list->setAllColumnsShowFocus(true);
    m_list->header()->resizeSection(0, kUsualCheckSize.width() * 2 / 5);
    m_list->header()->resizeSection(1, kUsualCheckSize.width() * 2 / 5);
}

QWidget* GroupCheckDialog::Buttons() {
    return NewButtonRow({{m_form.cmdStop, "cmdStop", QDialogButtonBox::ResetRole},
                         {m_form.cmdArchive, "cmdArchive", QDialogButtonBox::ResetRole},
                         {m_form.cmdReplace, "cmdReplace", QDialogButtonBox::ActionRole},
                         {m_form.cmdRemove, "cmdRemove", QDialogButtonBox::ActionRole},
                         {m_form.cmdUndo, "cmdUndo", QDialogButtonBox::ActionRole},
                         {m_form.cmdClose, "cmdClose", QDialogButtonBox::RejectRole}});
}

void ShowModal(frmGroupCheck& form, QWidget* parent) {
    const QPointer<GroupCheckDialog> dialog = new GroupCheckDialog(form, parent);
    ShowModal(form.Form, *dialog);
    delete dialog;
}

} // namespace tessa::qt
