#pragma once
#include "base/Text.h"

#include <QString>

namespace tessa::qt {

/// Text of the core as Qt's, and back.
inline QString ToQt(TextView text) { return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size())); }
inline Text FromQt(const QString& text) { return text.toStdU16String(); }

} // namespace tessa::qt
