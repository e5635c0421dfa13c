#include "qt/script/PdfWork.h"

#include <utility>

namespace tessa::qt {

PdfWork::~PdfWork() {
    m_stop = true;
    m_thread.waitForDone();
}

void PdfWork::Bind(std::vector<PdfBinder::Part> parts, const QString& file,
                   std::function<void(const PdfBinder::Bound&)> bound) {
    m_thread.start([this, parts = std::move(parts), file, told = std::move(bound)] {
        const PdfBinder::Bound result = PdfBinder::Bind(parts, file, m_stop);
        QMetaObject::invokeMethod(
            this, [told, result] { told(result); }, Qt::QueuedConnection);
    });
}

} // namespace tessa::qt
