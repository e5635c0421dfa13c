#pragma once
#include "qt/strip/TabIcons.h"
#include "tabpanel/frmTabPanel.h"

#include <QAbstractItemModel>
#include <vector>

namespace tessa::qt {

/// The entries of the list of tabs as rows. A row is made of its tab when somebody asks for it, so rows that nobody
/// sees cost nothing.
class TabPanelModel final : public QAbstractItemModel {
    Q_OBJECT

public:
    /// Both outlive it.
    TabPanelModel(frmTabPanel& form, const TabIcons& icons, QObject* parent);

    /// Shows the form's entries. Says which rows came, went and moved; for very many, that all are others.
    void Refresh();
    /// What the rows show may have changed.
    void RefreshFaces();

    /// The tab in that row; nothing once it has gone.
    [[nodiscard]] Tab* TabAt(const QModelIndex& index) const;
    /// The index of the view of that row's tab; 0 for none.
    [[nodiscard]] std::int32_t ViewAt(const QModelIndex& index) const;
    /// The group in that row; nothing for a tab.
    [[nodiscard]] TabGroup* GroupAt(const QModelIndex& index) const { return m_form.FindGroup(ViewAt(index)); }
    [[nodiscard]] QModelIndex IndexOf(std::int32_t view) const;
    [[nodiscard]] frmTabPanel& Form() const { return m_form; }
    [[nodiscard]] QIcon IconOf(const Tab& tab) const { return m_icons.IconOf(tab); }

    [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex& index) const override;
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    /// A group is said to have lines below it, although they are rows beside its own: so screen readers say whether it
    /// is folded.
    [[nodiscard]] bool hasChildren(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    /// Nothing: a screen reader would read the header that nobody sees.
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    void RemoveGone(const std::vector<std::int32_t>& wanted);
    void PlaceAt(int row, const std::vector<std::int32_t>& wanted);
    void MoveRow(int from, int to);
    [[nodiscard]] QString StateOf(const Tab& tab) const;
    [[nodiscard]] QVariant DataOf(const TabGroup& group, int role) const;

    frmTabPanel& m_form;
    const TabIcons& m_icons;
    std::vector<std::int32_t> m_rows; ///< by the indexes of their views
};

} // namespace tessa::qt
