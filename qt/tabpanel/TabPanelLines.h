#pragma once
#include <QStyledItemDelegate>

class QTreeView;

namespace tessa {
class Tab;
class TabGroup;
} // namespace tessa

namespace tessa::qt {

class TabPanelModel;
struct PanelInk;

/// How the lines of the list of tabs look: icon or mark, title, sound, and for the line under the pointer a button that
/// closes the tab. All from the palette.
class TabPanelLines final : public QStyledItemDelegate {
    Q_OBJECT

public:
    /// How far a tab of a group stands further in than the group.
    static constexpr int kStep = 12;
    /// What can be pressed on a line.
    enum class Part { Line, Sound, Close };

    /// The view is its parent.
    TabPanelLines(TabPanelModel& model, QTreeView* view);

    /// What of the line is at that point; `line` is its place.
    [[nodiscard]] Part PartAt(const QModelIndex& index, const QRect& line, QPoint point) const;
    [[nodiscard]] static QRect ClosePlace(const QRect& line);
    [[nodiscard]] static QRect SoundPlace(const QRect& line);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    [[nodiscard]] QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                        const QModelIndex& index) const override;
    /// Once: what somebody has typed stays, whatever else changes in the list meanwhile.
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;

private:
    void PaintGroup(QPainter& painter, const QStyleOptionViewItem& option, const TabGroup& group) const;
    void PaintGroupWords(QPainter& painter, const QStyleOptionViewItem& option, const TabGroup& group) const;
    void PaintTab(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index,
                  const Tab& tab) const;
    /// What stands at the end of the line; where that begins.
    int PaintMarks(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index, const Tab& tab,
                   const PanelInk& ink) const;

    TabPanelModel& m_model;
};

} // namespace tessa::qt
