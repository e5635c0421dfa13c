#include "qt/window/StatusBarView.h"

#include "qt/base/Bind.h"
#include "qt/base/Strings.h"

#include <QEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <algorithm>
#include <chrono>

namespace tessa::qt {

namespace {
constexpr std::chrono::milliseconds kTextDelay{100};
constexpr std::chrono::milliseconds kSavingDelay{500};
constexpr std::int32_t kPadding = 8;
/// Units of an address of two million, which would hold the window up for seconds.
constexpr std::size_t kMostShownText = 1000;
} // namespace

StatusBarView::StatusBarView(StatusBar& bar, QWidget* parent)
    : QStatusBar(parent),
      m_bar(bar),
      m_stopAll(new QPushButton(this)),
      m_undo(new QPushButton(this)),
      m_saving(new QPushButton(this)),
      m_blocked(new QPushButton(this)),
      m_zoom(MakeLabel(QStringLiteral("lblZoom"))),
      m_profile(MakeLabel(QStringLiteral("lblProfile"))) {
    setObjectName(QStringLiteral("sbStatus"));
    setAccessibleName(QStringLiteral("Status"));
    setSizeGripEnabled(false);
    m_textTimer.setSingleShot(true);
    m_noticeTimer.setSingleShot(true);
    connect(&m_textTimer, &QTimer::timeout, this, &StatusBarView::ShowText);
    connect(&m_noticeTimer, &QTimer::timeout, this, &StatusBarView::ShowText);
    // Else nobody would know who cannot see it.
    connect(this, &QStatusBar::messageChanged, this, &QWidget::setAccessibleDescription);
    BindButtons();
    Measure();
    FollowLabels();
    m_connections += m_bar.Complaint.Connect([this](TextView words) { Complain(ToQt(words)); });
    m_connections += m_bar.Notice.Attach([this](const Text& said) { ShowSaid(said); });
    m_connections += m_bar.SimpleText.Attach([this](const Text&) {
        if (!m_textTimer.isActive()) m_textTimer.start(kTextDelay);
    });
    m_connections += m_bar.Visible.Attach([this](bool) {
        FollowVisible();
        HeightChanged();
    });
}

void StatusBarView::FollowLabels() {
    m_connections += m_bar.Zoom.Attach([this](const Text& text) {
        m_zoom->setText(ToQt(text));
        m_zoom->setAccessibleName(QStringLiteral("Text size %1").arg(m_zoom->text()));
        m_zoom->setVisible(!text.empty());
        LayParts();
    });
    m_connections += m_bar.Profile.Attach([this](const Text& text) {
        m_profile->setText(ToQt(text));
        m_profile->setToolTip(ToQt(m_bar.ProfileTip));
        m_profile->setAccessibleDescription(m_profile->toolTip());
        m_profile->setVisible(!text.empty());
        LayParts();
    });
}

void StatusBarView::BindButtons() {
    Bind(m_bar.StopAll, *m_stopAll, QStringLiteral("cmdStopAll"));
    Bind(m_bar.Undo, *m_undo, QStringLiteral("cmdUndo"));
    BindSaving();
    Bind(m_bar.Blocked, *m_blocked, QStringLiteral("cmdBlocked"));
    m_blocked->setFlat(true);
    m_blocked->setAccessibleDescription(QStringLiteral("Shows what was blocked on this page"));
    m_blocked->setToolTip(m_blocked->accessibleDescription());
    m_connections += m_bar.Blocked.Caption.Attach([this](const Text&) { LayParts(); });
    for (QPushButton* button : {m_stopAll, m_undo, m_saving, m_blocked}) {
        button->setFocusPolicy(Qt::TabFocus);
        button->setAutoFillBackground(true);
        button->installEventFilter(this);
    }
}

// Not bound as a whole: its words are shown later than they are said.
void StatusBarView::BindSaving() {
    m_saving->setObjectName(QStringLiteral("cmdSaving"));
    connect(m_saving, &QPushButton::clicked, this, [this] { m_bar.Saving.Click(); });
    m_connections += m_bar.Saving.Visible.Attach([this](bool visible) { m_saving->setVisible(visible); });
    m_saving->setFlat(true);
    m_saving->setAccessibleDescription(QStringLiteral("Shows the downloads"));
    m_saving->setToolTip(m_saving->accessibleDescription());
    // A file that comes fast changes it many times a second.
    m_savingTimer.setSingleShot(true);
    connect(&m_savingTimer, &QTimer::timeout, this, &StatusBarView::ShowSaving);
    m_connections += m_bar.Saving.Caption.Attach([this](const Text& words) {
        if (words.empty() != m_saving->text().isEmpty()) return ShowSaving();
        if (!m_savingTimer.isActive()) m_savingTimer.start(kSavingDelay);
    });
}

QWidget& StatusBarView::BlockedSign() { return *m_blocked; }

QLabel* StatusBarView::MakeLabel(const QString& name) {
    auto* label = new QLabel(this);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setAutoFillBackground(true);
    return label;
}

void StatusBarView::changeEvent(QEvent* event) {
    QStatusBar::changeEvent(event);
    if (event->type() == QEvent::ParentChange) FollowVisible();
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) Measure();
}

bool StatusBarView::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent) LayParts();
    return QStatusBar::eventFilter(watched, event);
}

void StatusBarView::resizeEvent(QResizeEvent* event) {
    QStatusBar::resizeEvent(event);
    LayParts();
}

// A line parts it from the page, which may have the same ground.
void StatusBarView::paintEvent(QPaintEvent* event) {
    QStatusBar::paintEvent(event);
    QPainter painter(this);
    painter.fillRect(0, 0, width(), 1, palette().color(QPalette::Mid));
    if (!hasFocus()) return;
    painter.setPen(palette().color(QPalette::Highlight));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

// Over the end of the text, because a widget of the bar's own layout would make it higher.
void StatusBarView::LayParts() {
    int right = width() - kPadding;
    const auto lay = [&](QWidget& part) {
        const int wanted = part.sizeHint().width();
        part.setGeometry(right - wanted, 1, wanted, height() - 2);
        if (!part.isHidden()) right -= wanted + kPadding;
    };
    lay(*m_profile);
    lay(*m_zoom);
    lay(*m_blocked);
    lay(*m_stopAll);
    lay(*m_saving);
    // Beside the words that it takes back.
    const int undo = m_undo->sizeHint().width();
    const int behind = fontMetrics().horizontalAdvance(currentMessage()) + 3 * kPadding;
    m_undo->setGeometry(std::max(kPadding, std::min(behind, right - undo)), 1, undo, height() - 2);
    m_undo->raise();
}

void StatusBarView::ShowSaving() {
    const QString words = ToQt(m_bar.Saving.Caption());
    m_saving->setText(words);
    m_saving->setAccessibleName(words);
    LayParts();
}

void StatusBarView::ShowSaid(const Text& said) {
    if (!said.empty()) return Notice(ToQt(said), m_bar.Undo.Click.HasListeners() ? kOfferTime : kNoticeTime);
    // The view's own end of a notice comes here, too.
    if (m_notice.isEmpty()) return;
    m_notice.clear();
    if (!m_complaints.isEmpty()) return ShowNotices();
    m_noticeTimer.stop();
    ShowText();
}

void StatusBarView::ShowText() {
    if (m_noticeTimer.isActive()) return;
    m_complaints.clear();
    m_notice.clear();
    m_bar.Notice = Text();
    showMessage(ToQt(TextView(m_bar.SimpleText()).substr(0, kMostShownText)));
}

void StatusBarView::Notice(const QString& text, std::chrono::milliseconds time) {
    // What is said now is nothing that the button could take back.
    if (text != ToQt(m_bar.Notice())) m_bar.Notice = Text();
    m_notice = text;
    // The time of a complaint is not cut short.
    if (m_complaints.isEmpty() || m_noticeTimer.remainingTimeAsDuration() < time) m_noticeTimer.start(time);
    ShowNotices();
}

void StatusBarView::Complain(const QString& text) {
    // What can be taken back can still be so beside it.
    if (m_complaints.isEmpty() && !m_bar.Undo.Visible()) m_notice.clear();
    if (!m_complaints.contains(text)) m_complaints << text;
    m_noticeTimer.start(kNoticeTime);
    ShowNotices();
}

void StatusBarView::ShowNotices() {
    QStringList all = m_complaints;
    if (!m_notice.isEmpty()) all << m_notice;
    showMessage(all.join(QLatin1Char(' ')));
    LayParts();
}

void StatusBarView::FollowVisible() {
    // Without a parent it would show as a window of its own.
    if (parentWidget()) setVisible(m_bar.Visible());
}

void StatusBarView::Measure() {
    const Pixels height{fontMetrics().height() + kPadding};
    LayParts();
    if (height == m_bar.Height) return;
    m_bar.Height = height;
    HeightChanged();
}

} // namespace tessa::qt
