#include "qt/dialogs/About.h"

#include "qt/base/Bind.h"
#include "qt/base/BuildInfo.h"
#include "qt/base/Strings.h"
#include "qt/dialogs/SplashPanel.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

namespace tessa::qt {

namespace {
constexpr int kMargin = 20;
}

About::About(frmSplash& form, const QString& notice, QWidget* parent) : QDialog(parent), m_form(form) {
    setObjectName(QStringLiteral("frmSplash"));
    setWindowTitle(ToQt(form.Caption));
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addWidget(new SplashPanel(form));
    auto* below = new QVBoxLayout;
    below->setContentsMargins(kMargin, 0, kMargin, kMargin);
    below->setSpacing(kMargin);
    below->addWidget(Information());
    if (!notice.isEmpty()) below->addWidget(Notice(notice));
    below->addWidget(Buttons());
    rows->addLayout(below);
    // Larger fonts enlarge the box; more room than it needs is of no use.
    rows->setSizeConstraint(QLayout::SetFixedSize);
    Bind(form.Form, *this, form.Command1);
    findChild<QPushButton*>(QStringLiteral("Command1"))->setFocus();
}

QWidget* About::Information() {
    auto* lines = new QLabel(BuildInfo::Text());
    lines->setObjectName(QStringLiteral("lblBuild"));
    lines->setAccessibleName(QStringLiteral("Build information"));
    lines->setTextFormat(Qt::PlainText);
    lines->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    return lines;
}

QWidget* About::Notice(const QString& notice) {
    auto* line = new QLabel(notice);
    line->setObjectName(QStringLiteral("lblNotice"));
    line->setTextFormat(Qt::PlainText);
    line->setWordWrap(true);
    return line;
}

QWidget* About::Buttons() {
    auto* buttons = new QDialogButtonBox;
    auto* copy = new QPushButton(QStringLiteral("C&opy"));
    copy->setObjectName(QStringLiteral("cmdCopy"));
    copy->setAccessibleName(QStringLiteral("Copy build information"));
    connect(copy, &QPushButton::clicked, this, [] { QGuiApplication::clipboard()->setText(BuildInfo::Text()); });
    auto* close = new QPushButton;
    Bind(m_form.Command1, *close, QStringLiteral("Command1"));
    buttons->addButton(copy, QDialogButtonBox::ActionRole);
    buttons->addButton(close, QDialogButtonBox::RejectRole);
    close->setDefault(true);
    return buttons;
}

void ShowModal(frmSplash& form, QWidget* parent) {
    const QPointer<About> dialog = new About(form, ToQt(BuildInfo::EngineNotice()), parent);
    ShowModal(form.Form, *dialog);
    delete dialog;
}

} // namespace tessa::qt
