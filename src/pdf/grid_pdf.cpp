#include "pdf/grid_pdf.h"

#include <QGuiApplication>
#include <QPdfWriter>
#include <QSaveFile>

#include <memory>
#include <stdexcept>

#include "qtui/print_painter.h"
#include "qtui/qt_convert.h"
#include "workbench/print_layout.h"

namespace quillon {
namespace {

// Fonts and painting need a QGuiApplication; a program without a screen gets one that draws
// nowhere, for as long as the caller holds it.
std::unique_ptr<QGuiApplication> EnsureGuiApplication() {
    if (QCoreApplication::instance()) return nullptr;
    static int argc = 3;
    static char name[] = "quillon";
    static char platformOption[] = "-platform";
    static char platform[] = "offscreen";
    static char* argv[] = {name, platformOption, platform, nullptr};
    return std::make_unique<QGuiApplication>(argc, argv);
}

} // namespace

void WriteGridPdf(const PrintJob& job, const std::string& path) {
    const auto app = EnsureGuiApplication();
    const PrintLayout layout = LayoutPrintJob(job);

    QSaveFile file(ToQString(path));
    if (!file.open(QIODevice::WriteOnly))
        throw std::runtime_error("cannot write " + path + ": " + ToUtf8(file.errorString()));
    {
        QPdfWriter writer(&file);
        writer.setCreator(QStringLiteral("quillon"));
        writer.setTitle(ToQString(job.title));
        writer.setResolution(600);
        SetDevicePaper(writer, layout);
        PaintPrintLayout(layout, *job.grid, writer);
    }
    if (!file.commit()) throw std::runtime_error("cannot write " + path + ": " + ToUtf8(file.errorString()));
}

} // namespace quillon
