#pragma once

#include <QByteArray>
#include <QPageLayout>

#include "platform/qt/print/printing.h"

namespace platform::qt {

/// The sheet as a PDF on pages of that layout.
QByteArray pdfOf(const PrintJob& job, const QPageLayout& layout);

}  // namespace platform::qt
