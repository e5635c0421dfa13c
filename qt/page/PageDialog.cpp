#include "qt/page/PageDialog.h"

#include "base/PlainText.h"
#include "qt/base/Strings.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace tessa::qt {

namespace {

constexpr std::size_t kMostDialogLines = 200;
constexpr std::size_t kLongestDialogLine = 2000;
/// A longer message scrolls.
constexpr qsizetype kLongestLabel = 400;
constexpr qsizetype kMostLabelLines = 8;
constexpr int kScrolledHeight = 180;

QString HeadingOf(const PageDialogRequest& request) {
    if (request.kind == PageDialogKind::Leave) return QStringLiteral("Leave this page of %1?").arg(request.host);
    return request.host.isEmpty() ? QStringLiteral("The page says:") : QStringLiteral("%1 says:").arg(request.host);
}

} // namespace

PageDialog::PageDialog(const PageDialogRequest& request, bool offersSilence) {
    setObjectName(QStringLiteral("pageDialog"));
    AddHeading(HeadingOf(request));
    const bool leave = request.kind == PageDialogKind::Leave;
    AddMessage(leave ? QStringLiteral("What you have entered there may be lost.")
                     : ToQt(PlainLines(FromQt(request.message), kMostDialogLines, kLongestDialogLine)));
    if (request.kind == PageDialogKind::Prompt) {
        m_text = new QLineEdit(request.suggestion, this);
        m_text->setObjectName(QStringLiteral("txtAnswer"));
        m_text->setAccessibleName(QStringLiteral("Your answer"));
        m_text->selectAll();
        Column()->addWidget(m_text);
        setFocusProxy(m_text);
    }
    if (offersSilence) {
        m_silence = new QCheckBox(QStringLiteral("&Do not let this page show more messages"), this);
        m_silence->setObjectName(QStringLiteral("chkSilence"));
        Column()->addWidget(m_silence);
    }
    if (request.kind == PageDialogKind::Alert)
        AddButtons(QStringLiteral("OK"), {});
    else
        AddButtons(leave ? QStringLiteral("&Leave") : QStringLiteral("OK"),
                   leave ? QStringLiteral("&Stay") : QStringLiteral("Cancel"),
                   leave ? DefaultAnswer::Cancel : DefaultAnswer::Accept);
}

void PageDialog::AddMessage(const QString& message) {
    if (message.size() <= kLongestLabel && message.count(u'\n') < kMostLabelLines) {
        AddWords(message, "lblMessage");
        return;
    }
    auto* text = new QPlainTextEdit(message, this);
    text->setObjectName(QStringLiteral("txtMessage"));
    text->setReadOnly(true);
    text->setTabChangesFocus(true);
    text->setFixedHeight(kScrolledHeight);
    Column()->addWidget(text);
}

QString PageDialog::Text() const { return m_text ? m_text->text() : QString(); }

bool PageDialog::Silences() const { return m_silence && m_silence->isChecked(); }

} // namespace tessa::qt
