#include "qt/questions/NoticeBar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <algorithm>

namespace tessa::qt {

NoticeBar::NoticeBar(QWidget* parent)
    : PageBar(QStringLiteral("noticeBar"), parent), m_words(new QLabel(this)), m_more(new QLabel(this)) {
    for (QLabel* each : {m_words, m_more}) each->setTextFormat(Qt::PlainText);
    m_words->setObjectName(QStringLiteral("lblNotice"));
    m_words->setWordWrap(true);
    m_words->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    m_more->setObjectName(QStringLiteral("lblMoreNotices"));
    auto* shown = new QPushButton(QStringLiteral("&Show"), this);
    auto* dismissed = new QPushButton(QStringLiteral("&Dismiss"), this);
    shown->setObjectName(QStringLiteral("cmdShowNotice"));
    dismissed->setObjectName(QStringLiteral("cmdDismissNotice"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(8, 4, 8, 4);
    row->addWidget(m_words, 1);
    for (QWidget* each :
         {static_cast<QWidget*>(m_more), static_cast<QWidget*>(shown), static_cast<QWidget*>(dismissed)})
        row->addWidget(each);
    connect(shown, &QPushButton::clicked, this, [this] { Answer(&Notice::shown); });
    connect(dismissed, &QPushButton::clicked, this, [this] { Answer(&Notice::dismissed); });
    hide();
}

int NoticeBar::Add(Notice notice) {
    m_notices.emplace_back(++m_last, std::move(notice));
    ShowFirst();
    return m_last;
}

void NoticeBar::Remove(int number) {
    if (std::erase_if(m_notices, [number](const auto& each) { return each.first == number; }) > 0) ShowFirst();
}

void NoticeBar::ShowFirst() {
    const std::size_t more = m_notices.empty() ? 0 : m_notices.size() - 1;
    m_words->setText(m_notices.empty() ? QString() : m_notices.front().second.words);
    setAccessibleName(m_words->text());
    m_more->setText(QStringLiteral("%1 more").arg(more));
    m_more->setVisible(more > 0);
    setVisible(!m_notices.empty());
    Changed();
}

void NoticeBar::Answer(std::function<void()> Notice::*answer) {
    if (m_notices.empty()) return;
    const Notice answered = std::move(m_notices.front().second);
    m_notices.pop_front();
    ShowFirst();
    if (answered.*answer) (answered.*answer)();
}

} // namespace tessa::qt
