#include "qt/dialogs/GroupCompareDialog.h"

#include "qt/base/Bind.h"
#include "qt/base/FormRows.h"
#include "qt/base/ItemRows.h"
#include "qt/base/Strings.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPointer>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace tessa::qt {

namespace {

constexpr QSize kUsualCompareSize{760, 400};

} // namespace

GroupCompareDialog::GroupCompareDialog(frmGroupCompare& form, QWidget* parent)
    : QDialog(parent), m_form(form), m_list(new QTreeWidget) {
    setObjectName(QStringLiteral("frmGroupCompare"));
    setWindowTitle(ToQt(form.Caption));
    MakeList();
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(NewLabel(form.lblSummary, "lblSummary"));
    rows->addWidget(m_list, 1);
    rows->addWidget(NewAnswers({form.cmdMerge, "cmdMerge", QDialogButtonBox::AcceptRole},
                               {form.cmdCancel, "cmdCancel", QDialogButtonBox::RejectRole}));
    BindRows(m_form.lstLines, *m_list, m_connections, [&form](QTreeWidgetItem& item, const ComparedLine& line) {
        ShowCell(item, 0, ToQt(line.What.address));
        ShowCell(item, 1, ToQt(form.WordsOf(line)));
        // Only what merging can change has a box to tick.
        item.setData(0, Qt::CheckStateRole,
                     line.Changes() ? QVariant(line.Ticked ? Qt::Checked : Qt::Unchecked) : QVariant());
    });
    connect(m_list, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* item) {
        m_form.Tick(static_cast<std::size_t>(m_list->indexOfTopLevelItem(item)), item->checkState(0) == Qt::Checked);
    });
    Bind(form.Form, *this, form.cmdCancel);
    resize(kUsualCompareSize.expandedTo(minimumSizeHint()));
    m_list->setFocus();
}

void GroupCompareDialog::MakeList() {
    m_list->setObjectName(QStringLiteral("lstLines"));
    m_list->setAccessibleName(QStringLiteral("Addresses"));
    m_list->setHeaderLabels({QStringLiteral("Address"), QStringLiteral("Where it stands")});
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setAlternatingRowColors(true);
    m_list->setAllColumnsShowFocus(true);
    m_list->header()->resizeSection(0, kUsualCompareSize.width() / 2);
}

void ShowModal(frmGroupCompare& form, QWidget* parent) {
    const QPointer<GroupCompareDialog> dialog = new GroupCompareDialog(form, parent);
    ShowModal(form.Form, *dialog);
    delete dialog;
}

} // namespace tessa::qt
