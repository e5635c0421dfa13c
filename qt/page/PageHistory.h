#pragma once
#include <QByteArray>

class QWebEnginePage;

namespace tessa::qt {

/// Where a page has been, as bytes.
namespace PageHistory {

[[nodiscard]] QByteArray Bytes(const QWebEnginePage& page);
/// Takes the page to where it was then. False when the bytes tell nothing, and nothing loads.
[[nodiscard]] bool Fill(QWebEnginePage& page, const QByteArray& bytes);

} // namespace PageHistory

} // namespace tessa::qt
