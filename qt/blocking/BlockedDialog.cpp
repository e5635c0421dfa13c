#include "qt/blocking/BlockedDialog.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace tessa::qt {

namespace {

constexpr int kColumnDigits = 44, kColumnsWide = 3, kLinesHigh = 20;
constexpr qsizetype kLongestShown = 500;

// A rule may name hundreds of sites.
QString Shown(const QString& text) { return text.size() > kLongestShown ? text.left(kLongestShown) + u'…' : text; }

QTreeWidgetItem* LineOf(const BlockedRequest& request) {
    const QString address = request.address.toDisplayString(QUrl::FullyEncoded);
    auto* line = new QTreeWidgetItem({Shown(address), Shown(request.rule), request.list});
    for (int column = 0; column < 3; ++column) line->setToolTip(column, line->text(column));
    return line;
}

QString WordsFor(std::size_t listed, int count) {
    if (listed == 0) return QStringLiteral("Nothing was blocked on this page.");
    if (static_cast<std::size_t>(count) <= listed)
        return QStringLiteral("Requests that were blocked on this page: %1").arg(count);
    return QStringLiteral("The first %1 of %2 requests that were blocked on this page.").arg(listed).arg(count);
}

} // namespace

BlockedDialog::BlockedDialog(const std::vector<BlockedRequest>& stopped, int count, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmBlocked"));
    setWindowTitle(QStringLiteral("What Was Blocked"));
    setAttribute(Qt::WA_DeleteOnClose);
    auto* lines = new QTreeWidget;
    lines->setObjectName(QStringLiteral("lstBlocked"));
    lines->setAccessibleName(QStringLiteral("What was blocked"));
    lines->setHeaderLabels({QStringLiteral("Address"), QStringLiteral("Rule"), QStringLiteral("List")});
    lines->setRootIsDecorated(false);
    lines->setUniformRowHeights(true);
    for (const BlockedRequest& each : stopped) lines->addTopLevelItem(LineOf(each));
    const int digit = lines->fontMetrics().horizontalAdvance(u'0');
    lines->setColumnWidth(0, digit * kColumnDigits);
    lines->setColumnWidth(1, digit * kColumnDigits);
    auto* words = new QLabel(WordsFor(stopped.size(), count));
    auto* answers = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(answers, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(words);
    rows->addWidget(lines);
    rows->addWidget(answers);
    // No more than it would like: on a small screen the list scrolls, not the whole dialog.
    resize(digit * kColumnDigits * kColumnsWide, lines->fontMetrics().height() * kLinesHigh);
}

} // namespace tessa::qt
