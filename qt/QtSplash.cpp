#include "qt/QtSplash.h"

#include "qt/QtIcons.h"

#include <QFrame>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>

namespace {

constexpr int kPictureSize = 64;
constexpr int kMargin = 28;

QLabel* MakeLine(const char* name, const QString& text, double scale) {
    auto* line = new QLabel(text);
    line->setObjectName(QLatin1String(name));
    QFont font = line->font();
    font.setPointSizeF(font.pointSizeF() * scale);
    font.setBold(scale > 1);
    line->setFont(font);
    return line;
}

std::unique_ptr<QWidget> MakeWindow() {
    auto window = std::make_unique<QFrame>(nullptr, Qt::SplashScreen);
    window->setObjectName(QStringLiteral("frmSplash"));
    window->setFrameStyle(static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Plain));
    auto* picture = new QLabel;
    picture->setObjectName(QStringLiteral("Image1"));
    picture->setPixmap(QtIcons::Application().pixmap(QSize(kPictureSize, kPictureSize), window->devicePixelRatio()));
    auto* row = new QHBoxLayout(window.get());
    row->setContentsMargins(kMargin, kMargin, kMargin + kMargin / 2, kMargin);
    row->setSpacing(kMargin * 3 / 4);
    row->addWidget(picture);
    auto* lines = new QVBoxLayout;
    lines->setSpacing(2);
    row->addLayout(lines);
    lines->addStretch();
    lines->addWidget(MakeLine("Label1", QStringLiteral("TessaView"), 2.2));
    lines->addWidget(MakeLine("Label2", QStringLiteral("Version 3.02 Build 159"), 1));
    lines->addStretch();
    return window;
}

} // namespace

QtSplash::QtSplash() = default;
QtSplash::~QtSplash() = default;

void QtSplash::Show() {
    if (!m_window) m_window = MakeWindow();
    m_window->adjustSize();
    if (const QScreen* screen = QGuiApplication::primaryScreen())
        m_window->move(screen->availableGeometry().center() - m_window->rect().center());
    m_window->show();
}

void QtSplash::Unload() { m_window.reset(); }
