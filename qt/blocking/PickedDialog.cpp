#include "qt/blocking/PickedDialog.h"

#include "blocking/RuleLine.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <QWebEnginePage>

namespace tessa::qt {

namespace {
constexpr int kSelectorDigits = 60;
} // namespace

PickedDialog::PickedDialog(Blocker& blocker, const ElementHiding& hiding, QWebEnginePage& page, const QString& selector,
                           QWidget* parent)
    : QDialog(parent),
      m_blocker(blocker),
      m_hiding(hiding),
      m_page(&page),
      m_host(page.url().host(QUrl::FullyEncoded)),
      m_selector(new QLineEdit(selector)),
      m_words(new QLabel) {
    setObjectName(QStringLiteral("frmPicked"));
    setWindowTitle(QStringLiteral("Hide an Element"));
    setAttribute(Qt::WA_DeleteOnClose);
    connect(LayOut(), &QPushButton::clicked, this, [this] {
        reject();
        PicksAgain();
    });
    connect(m_selector, &QLineEdit::textChanged, this, [this] { Preview(); });
    connect(&page, &QWebEnginePage::loadStarted, this, &QDialog::reject);
    connect(&page, &QObject::destroyed, this, &QDialog::reject);
    Preview();
}

QPushButton* PickedDialog::LayOut() {
    auto* caption = new QLabel(QStringLiteral("&What is hidden on pages of %1").arg(m_host));
    caption->setBuddy(m_selector);
    m_selector->setObjectName(QStringLiteral("txtSelector"));
    m_selector->setMinimumWidth(m_selector->fontMetrics().horizontalAdvance(u'0') * kSelectorDigits);
    auto* answers = new QDialogButtonBox;
    m_keep = answers->addButton(QStringLiteral("&Keep Hidden"), QDialogButtonBox::AcceptRole);
    auto* again = answers->addButton(QStringLiteral("Choose &Another"), QDialogButtonBox::ActionRole);
    answers->addButton(QDialogButtonBox::Cancel);
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(caption);
    rows->addWidget(m_selector);
    rows->addWidget(m_words);
    rows->addWidget(answers);
    connect(answers, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(answers, &QDialogButtonBox::rejected, this, &QDialog::reject);
    return again;
}

QString PickedDialog::Rule() const { return m_host + QStringLiteral("##") + m_selector->text().trimmed(); }

void PickedDialog::Preview() {
    const RuleLine read = ReadRuleLine(Rule().toStdString());
    const bool good = read.Kind == LineKind::Hiding;
    m_keep->setEnabled(good);
    if (!good) m_words->setText(QStringLiteral("This selects nothing."));
    if (m_page) {
        m_hiding.Preview(*m_page, good ? m_selector->text().trimmed() : QString(),
                         [dialog = QPointer<PickedDialog>(this), good](int count) {
                             if (dialog && good) dialog->ShowCount(count);
                         });
    }
}

void PickedDialog::ShowCount(int count) {
    m_words->setText(count == 1 ? QStringLiteral("One element of this page is hidden.")
                                : QStringLiteral("%1 elements of this page are hidden.").arg(count));
}

void PickedDialog::done(int result) {
    const bool keeps = result == QDialog::Accepted;
    if (keeps)
        Done(m_blocker.AddOwnRule(Rule()));
    else if (m_page)
        m_hiding.Preview(*m_page, {}, [](int) {});
    QDialog::done(result);
}

} // namespace tessa::qt
