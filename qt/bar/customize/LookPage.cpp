#include "qt/bar/customize/LookPage.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QSignalBlocker>

namespace tessa::qt {

LookPage::LookPage(Customization& custom, QWidget* parent)
    : QWidget(parent),
      m_custom(custom),
      m_icons(new QComboBox),
      m_text(new QComboBox),
      m_tips(new QCheckBox(QStringLiteral("&Show tool tips"))) {
    // In the order of the values that they stand for.
    m_icons->addItems({QStringLiteral("Small"), QStringLiteral("Medium"), QStringLiteral("Large")});
    m_text->addItems({QStringLiteral("Icons only"), QStringLiteral("Text beside icons"),
                      QStringLiteral("Text under icons"), QStringLiteral("Text only")});
    m_icons->setObjectName(QStringLiteral("cboIcons"));
    m_icons->setAccessibleName(QStringLiteral("Icon size"));
    m_text->setObjectName(QStringLiteral("cboText"));
    m_text->setAccessibleName(QStringLiteral("Text on toolbars"));
    m_tips->setObjectName(QStringLiteral("chkTips"));
    auto* rows = new QFormLayout(this);
    rows->addRow(QStringLiteral("&Icon size:"), m_icons);
    rows->addRow(QStringLiteral("Te&xt on toolbars:"), m_text);
    rows->addRow(m_tips);
    setFocusProxy(m_icons);
    Refresh();
    connect(m_icons, &QComboBox::currentIndexChanged, this, &LookPage::Apply);
    connect(m_text, &QComboBox::currentIndexChanged, this, &LookPage::Apply);
    connect(m_tips, &QCheckBox::toggled, this, &LookPage::Apply);
}

void LookPage::Refresh() {
    const QSignalBlocker quietIcons(m_icons), quietText(m_text), quietTips(m_tips);
    m_icons->setCurrentIndex(static_cast<int>(m_custom.Look().Icons));
    m_text->setCurrentIndex(static_cast<int>(m_custom.Look().Text));
    m_tips->setChecked(m_custom.Look().ToolTips);
}

void LookPage::Apply() {
    m_custom.SetLook({static_cast<IconSize>(m_icons->currentIndex()), static_cast<ToolText>(m_text->currentIndex()),
                      m_tips->isChecked()});
}

} // namespace tessa::qt
