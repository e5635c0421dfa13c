#pragma once
#include "commands/Customization.h"

#include <QWidget>

class QCheckBox;
class QComboBox;

namespace tessa::qt {

/// The page of the customisation dialog on how toolbars look.
class LookPage final : public QWidget {
    Q_OBJECT

public:
    /// The customisation outlives it.
    explicit LookPage(Customization& custom, QWidget* parent = nullptr);

    void Refresh();

private:
    void Apply();

    Customization& m_custom;
    QComboBox* m_icons;
    QComboBox* m_text;
    QCheckBox* m_tips;
};

} // namespace tessa::qt
