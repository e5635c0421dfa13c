#include "qt/dialogs/SplashPanel.h"

#include "qt/base/Bind.h"
#include "qt/base/Icons.h"
#include "qt/base/Strings.h"

#include <QLabel>
#include <QVBoxLayout>

namespace tessa::qt {

namespace {

constexpr QSize kPictureSize{440, 170};
constexpr int kPanelMargin = 20;

QLabel* MakeLine(Label& label, const char* name, double scale) {
    auto* line = new QLabel;
    Bind(label, *line, QString::fromLatin1(name));
    QFont font = line->font();
    font.setPointSizeF(font.pointSizeF() * scale);
    font.setBold(scale > 1);
    line->setFont(font);
    return line;
}

QLabel* MakePicture(const frmSplash& form, qreal pixelRatio) {
    auto* picture = new QLabel;
    picture->setObjectName(QStringLiteral("Image1"));
    picture->setPixmap(Icons::Own(ToQt(form.Image1)).pixmap(kPictureSize, pixelRatio));
    picture->setAlignment(Qt::AlignCenter);
    return picture;
}

} // namespace

SplashPanel::SplashPanel(frmSplash& form, QWidget* parent) : QWidget(parent) {
    auto* notice = MakeLine(form.Label3, "Label3", 0.9);
    notice->setWordWrap(true);
    notice->setMinimumWidth(kPictureSize.width() - 2 * kPanelMargin);
    auto* lines = new QVBoxLayout;
    lines->setContentsMargins(kPanelMargin, kPanelMargin / 2, kPanelMargin, kPanelMargin);
    lines->setSpacing(2);
    lines->addWidget(MakeLine(form.Label1, "Label1", 1.8));
    lines->addWidget(MakeLine(form.Label2, "Label2", 1));
    lines->addSpacing(kPanelMargin / 2);
    lines->addWidget(notice);

    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addWidget(MakePicture(form, devicePixelRatio()));
    rows->addLayout(lines);
}

} // namespace tessa::qt
