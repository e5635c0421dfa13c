#include "qt/script/PdfWork.h"

#include <utility>

namespace tessa::qt {

PdfWork::~PdfWork() {
    for (const auto& each : m_stops) {
        if (const auto stop = each.lock()) *stop = true;
    }
    m_thread.waitForDone();
}

std::function<void()> PdfWork::Bind(std::vector<PdfBinder::Part> parts, const QString& file, Told told) {
    const auto stop = std::make_shared<Stop>(false);
    std::erase_if(m_stops, [](const auto& each) { return each.expired(); });
    m_stops.emplace_back(stop);
    m_thread.start([this, stop, parts = std::move(parts), file, told = std::move(told)] {
        const auto progress = [this, told](int percent) {
            QMetaObject::invokeMethod(
                this, [told, percent] { told.progress(percent); }, Qt::QueuedConnection);
        };
        const PdfBinder::Bound result =
            PdfBinder::Bind(parts, file, {*stop, told.progress ? progress : std::function<void(int)>()});
        QMetaObject::invokeMethod(
            this, [told, result] { told.bound(result); }, Qt::QueuedConnection);
    });
    return [stop] { *stop = true; };
}

} // namespace tessa::qt
