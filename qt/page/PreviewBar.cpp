#include "qt/page/PreviewBar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace tessa::qt {

PreviewBar::PreviewBar(QWidget* parent) : PageBar(QStringLiteral("previewBar"), parent) {
    setAccessibleName(QStringLiteral("Print preview"));
    auto* words = new QLabel(QStringLiteral("This is how the page will be printed."), this);
    words->setWordWrap(true);
    words->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    auto* print = new QPushButton(QStringLiteral("&Print..."), this);
    auto* close = new QPushButton(QStringLiteral("&Close"), this);
    print->setObjectName(QStringLiteral("cmdPrintPreviewed"));
    close->setObjectName(QStringLiteral("cmdClosePreview"));
    close->setToolTip(QStringLiteral("Close the preview and go back to the page"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(8, 4, 8, 4);
    row->addWidget(words, 1);
    row->addWidget(print);
    row->addWidget(close);
    connect(
        print, &QPushButton::clicked, this, [this] { Print(); }, Qt::QueuedConnection);
    connect(
        close, &QPushButton::clicked, this, [this] { Close(); }, Qt::QueuedConnection);
    hide();
}

} // namespace tessa::qt
