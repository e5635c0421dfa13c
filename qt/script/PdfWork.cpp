#include "qt/script/PdfWork.h"

#include <utility>

namespace tessa::qt {

PdfWork::~PdfWork() {
    m_stop = true;
    m_thread.waitForDone();
}

void PdfWork::Bind(std::vector<PdfBinder::Part> parts, const QString& file, Told told) {
    m_thread.start([this, parts = std::move(parts), file, told = std::move(told)] {
        const auto progress = [this, told](int percent) {
            QMetaObject::invokeMethod(
                this, [told, percent] { told.progress(percent); }, Qt::QueuedConnection);
        };
        const PdfBinder::Bound result =
            PdfBinder::Bind(parts, file, {m_stop, told.progress ? progress : std::function<void(int)>()});
        QMetaObject::invokeMethod(
            this, [told, result] { told.bound(result); }, Qt::QueuedConnection);
    });
}

} // namespace tessa::qt
