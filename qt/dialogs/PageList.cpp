#include "qt/dialogs/PageList.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPainter>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QStackedWidget>
#include <QStyledItemDelegate>
#include <utility>

namespace tessa::qt {

namespace {

constexpr int kMarkedNameRole = Qt::UserRole;
constexpr int kNamePadding = 6;

QString WithoutMark(QString name) { return name.remove(u'&'); }

// Shows which key leads to a page, which a list does not do by itself.
class MarkedNames final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        QStyleOptionViewItem item(option);
        initStyleOption(&item, index);
        const QStyle* style = item.widget->style();
        style->drawPrimitive(QStyle::PE_PanelItemViewItem, &item, painter, item.widget);
        const bool selected = item.state.testFlag(QStyle::State_Selected);
        const bool marked = style->styleHint(QStyle::SH_UnderlineShortcut, &item, item.widget) != 0;
        const int flags =
            static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter) | (marked ? Qt::TextShowMnemonic : Qt::TextHideMnemonic);
        style->drawItemText(painter, item.rect.adjusted(kNamePadding, 0, -kNamePadding, 0), flags, item.palette, true,
                            index.data(kMarkedNameRole).toString(),
                            selected ? QPalette::HighlightedText : QPalette::Text);
    }

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const QFontMetrics metrics(option.font);
        const int width = metrics.horizontalAdvance(index.data().toString());
        return {width + 2 * kNamePadding, metrics.height() + 2 * kNamePadding};
    }
};

/// As large as its page, as far as the screen has room beside the list and the window's frame.
class PageScroll final : public QScrollArea {
public:
    explicit PageScroll(QWidget& page) {
        setFrameShape(QFrame::NoFrame);
        setWidgetResizable(true);
        setWidget(&page);
        setFocusPolicy(Qt::NoFocus);
        // An access key leads to what may be out of sight.
        connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
            if (now && now != widget() && widget()->isAncestorOf(now)) ensureWidgetVisible(now);
        });
    }

    [[nodiscard]] QSize sizeHint() const override {
        const QSize all = widget()->sizeHint();
        const QSize room = screen()->availableSize() - kRoomBeside;
        const int bar = verticalScrollBar()->sizeHint().width();
        if (all.height() <= room.height()) return all.boundedTo(room);
        return QSize(all.width() + bar, all.height()).boundedTo(room);
    }
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

private:
    static constexpr QSize kRoomBeside{140, 130};
};

} // namespace

PageList::PageList(QWidget* parent)
    : QWidget(parent), m_names(new QListWidget(this)), m_pages(new QStackedWidget(this)) {
    setObjectName(QStringLiteral("pagesOptions"));
    m_names->setObjectName(QStringLiteral("lstPages"));
    m_names->setAccessibleName(QStringLiteral("Pages"));
    m_names->setItemDelegate(new MarkedNames(m_names));
    m_names->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_names);
    row->addWidget(m_pages, 1);
    connect(m_names, &QListWidget::currentRowChanged, m_pages, &QStackedWidget::setCurrentIndex);
    AddKey(QKeySequence(Qt::CTRL | Qt::Key_Tab), 1);
    AddKey(QKeySequence(Qt::CTRL | Qt::Key_PageDown), 1);
    AddKey(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Tab), -1);
    AddKey(QKeySequence(Qt::CTRL | Qt::Key_PageUp), -1);
}

void PageList::AddKey(const QKeySequence& keys, int step) {
    auto* key = new QShortcut(keys, this, nullptr, nullptr, Qt::WindowShortcut);
    connect(key, &QShortcut::activated, this, [this, step] { SetCurrent((Current() + step + Count()) % Count()); });
}

void PageList::Add(QWidget& page, const QString& name) {
    auto* item = new QListWidgetItem(WithoutMark(name));
    item->setData(kMarkedNameRole, name);
    m_pages->addWidget(new PageScroll(page));
    m_names->addItem(item);
    auto* key = new QShortcut(QKeySequence::mnemonic(name), this, nullptr, nullptr, Qt::WindowShortcut);
    connect(key, &QShortcut::activated, this, [this, &page] {
        Show(page);
        m_names->setFocus(Qt::ShortcutFocusReason);
    });
    if (Current() < 0) SetCurrent(0);
    FitNames();
}

void PageList::FitNames() { m_names->setFixedWidth(m_names->sizeHintForColumn(0) + 2 * m_names->frameWidth()); }

void PageList::Show(QWidget& page) { SetCurrent(m_pages->indexOf(page.parentWidget()->parentWidget())); }

int PageList::Count() const { return m_pages->count(); }

QWidget* PageList::Page(int index) const { return static_cast<QScrollArea*>(m_pages->widget(index))->widget(); }

int PageList::Current() const { return m_names->currentRow(); }

void PageList::SetCurrent(int index) { m_names->setCurrentRow(index); }

} // namespace tessa::qt
