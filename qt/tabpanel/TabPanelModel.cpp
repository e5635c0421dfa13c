#include "qt/tabpanel/TabPanelModel.h"

#include "base/Captions.h"
#include "qt/base/Strings.h"
#include "qt/base/Tip.h"

#include <algorithm>
#include <set>

namespace tessa::qt {

namespace {

/// When more rows have changed than that, one looks at all of them rather than at each.
constexpr std::size_t kMostSingleRows = 60;

std::size_t CountChanges(const std::vector<std::int32_t>& now, const std::vector<std::int32_t>& wanted) {
    std::size_t same = 0, end = 0;
    const std::size_t least = std::min(now.size(), wanted.size());
    while (same < least && now[same] == wanted[same]) ++same;
    while (end < least - same && now[now.size() - 1 - end] == wanted[wanted.size() - 1 - end]) ++end;
    return std::max(now.size(), wanted.size()) - same - end;
}

} // namespace

TabPanelModel::TabPanelModel(frmTabPanel& form, const TabIcons& icons, QObject* parent)
    : QAbstractItemModel(parent), m_form(form), m_icons(icons) {
    Refresh();
}

void TabPanelModel::Refresh() {
    std::vector<std::int32_t> wanted;
    std::ranges::transform(m_form.Entries(), std::back_inserter(wanted), &TabPanelEntry::Index);
    if (wanted == m_rows) return RefreshFaces();
    const bool few = CountChanges(m_rows, wanted) <= kMostSingleRows;
    if (!few) {
        beginResetModel();
        m_rows = std::move(wanted);
        return endResetModel();
    }
    RemoveGone(wanted);
    for (int row = 0; row < static_cast<int>(wanted.size()); ++row) PlaceAt(row, wanted);
    RefreshFaces();
}

void TabPanelModel::RefreshFaces() {
    if (!m_rows.empty()) Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, 0));
}

void TabPanelModel::RemoveGone(const std::vector<std::int32_t>& wanted) {
    const std::set<std::int32_t> kept(wanted.begin(), wanted.end());
    for (int row = rowCount() - 1; row >= 0; --row) {
        if (kept.contains(m_rows[static_cast<std::size_t>(row)])) continue;
        beginRemoveRows({}, row, row);
        m_rows.erase(m_rows.begin() + row);
        endRemoveRows();
    }
}

// All rows before that one are right already.
void TabPanelModel::PlaceAt(int row, const std::vector<std::int32_t>& wanted) {
    const auto at = static_cast<std::size_t>(row);
    const std::int32_t view = wanted[at];
    if (at < m_rows.size() && m_rows[at] == view) return;
    const auto found = std::ranges::find(m_rows, view);
    if (found == m_rows.end()) {
        beginInsertRows({}, row, row);
        m_rows.insert(m_rows.begin() + row, view);
        return endInsertRows();
    }
    // One that has gone further down makes all between seem to have moved: then it is that one that moves.
    if (at + 1 < m_rows.size() && m_rows[at + 1] == view) {
        const auto to = static_cast<int>(std::ranges::find(wanted, m_rows[at]) - wanted.begin());
        MoveRow(row, std::min(to, rowCount() - 1));
    }
    const auto from = static_cast<int>(std::ranges::find(m_rows, view) - m_rows.begin());
    if (from != row) MoveRow(from, row);
}

void TabPanelModel::MoveRow(int from, int to) {
    if (from == to || !beginMoveRows({}, from, from, {}, to > from ? to + 1 : to)) return;
    const auto begin = m_rows.begin();
    from < to ? std::rotate(begin + from, begin + from + 1, begin + to + 1)
              : std::rotate(begin + to, begin + from, begin + from + 1);
    endMoveRows();
}

Tab* TabPanelModel::TabAt(const QModelIndex& index) const { return m_form.FindTab(ViewAt(index)); }

std::int32_t TabPanelModel::ViewAt(const QModelIndex& index) const {
    const auto row = static_cast<std::size_t>(index.row());
    return index.isValid() && row < m_rows.size() ? m_rows[row] : 0;
}

QModelIndex TabPanelModel::IndexOf(std::int32_t view) const {
    const auto found = std::ranges::find(m_rows, view);
    return found == m_rows.end() ? QModelIndex() : index(static_cast<int>(found - m_rows.begin()), 0);
}

QModelIndex TabPanelModel::index(int row, int column, const QModelIndex& parent) const {
    return hasIndex(row, column, parent) ? createIndex(row, column) : QModelIndex();
}

QModelIndex TabPanelModel::parent(const QModelIndex&) const { return {}; }

int TabPanelModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

bool TabPanelModel::hasChildren(const QModelIndex& parent) const {
    return parent.isValid() ? GroupAt(parent) != nullptr : !m_rows.empty();
}

int TabPanelModel::columnCount(const QModelIndex&) const { return 1; }

QString TabPanelModel::StateOf(const Tab& tab) const {
    QStringList all;
    if (&tab == m_form.Front()) all += QStringLiteral("in front");
    if (tab.Chosen()) all += QStringLiteral("selected");
    if (tab.Asks()) all += QStringLiteral("asks a question");
    if (tab.Image() == TabImage::Red) all += QStringLiteral("loading");
    if (tab.Sound() == TabSound::Playing) all += QStringLiteral("plays sound");
    if (tab.Sound() == TabSound::Muted) all += QStringLiteral("muted");
    if (tab.News() == TabNews::New) all += QStringLiteral("new");
    if (m_form.IsAsleep(tab)) all += QStringLiteral("asleep");
    if (tab.Private()) all += QStringLiteral("private");
    if (tab.Group()) all += QStringLiteral("in the group ") + ToQt(OneLine(tab.Group()->Name()));
    return all.join(QStringLiteral(", "));
}

QVariant TabPanelModel::DataOf(const TabGroup& group, int role) const {
    if (role == Qt::DisplayRole) return ToQt(OneLine(group.Name()));
    const QString words = ToQt(m_form.WordsOf(group));
    if (role == Qt::ToolTipRole) return Tip::Html(ToQt(group.Name()) + u'\n' + words);
    if (role != Qt::AccessibleDescriptionRole) return {};
    return (group.Folded() ? QStringLiteral("group, folded, ") : QStringLiteral("group, ")) + words;
}

QVariant TabPanelModel::data(const QModelIndex& index, int role) const {
    if (const auto* group = GroupAt(index)) return DataOf(*group, role);
    const Tab* tab = TabAt(index);
    if (!tab) return {};
    switch (role) {
    case Qt::DisplayRole:
        // What turns the writing around in a title would do so in the dots behind it as well.
        return ToQt(OneLine(m_form.TitleOf(*tab)));
    case Qt::EditRole:
        return ToQt(OneLine(m_form.TitleOf(*tab)));
    case Qt::ToolTipRole:
        return Tip::Html(ToQt(m_form.TipOf(*tab)));
    case Qt::AccessibleDescriptionRole:
        return StateOf(*tab);
    default:
        return {};
    }
}

QVariant TabPanelModel::headerData(int, Qt::Orientation, int) const { return {}; }

bool TabPanelModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    const std::int32_t view = ViewAt(index);
    if (role != Qt::EditRole || view <= 0) return false;
    m_form.Rename(view, FromQt(value.toString()));
    Q_EMIT dataChanged(index, index);
    return true;
}

Qt::ItemFlags TabPanelModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) return Qt::NoItemFlags;
    if (ViewAt(index) < 0) return Qt::ItemIsEnabled;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable | Qt::ItemNeverHasChildren;
}

} // namespace tessa::qt
