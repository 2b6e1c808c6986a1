// qt_test_app.h — the Qt skin's tests: one QApplication for the whole test program (offscreen
// platform), and small helpers to look at what a widget painted.
#pragma once

#include <QApplication>
#include <QImage>
#include <QWidget>

namespace quillon {

// Creates the application on first use; it lives until the program ends.
inline QApplication& TestApp() {
    static int argc = 1;
    static char name[] = "test_qtui";
    static char* argv[] = {name, nullptr};
    static QApplication* app = [] {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        return new QApplication(argc, argv);
    }();
    return *app;
}

// The first member of a fixture that holds widgets: the application exists before them.
struct WithApp {
    WithApp() { TestApp(); }
};

// What the widget shows now, painted afresh.
inline QImage Snapshot(QWidget& widget) {
    return widget.grab().toImage();
}

// Where text was drawn within a rectangle: its columns (x, along Qt::Horizontal) or rows (y, along
// Qt::Vertical) that hold a pixel darker than 120 on all three channels.
inline QList<int> Ink(const QImage& image, const QRect& rect, Qt::Orientation along) {
    const bool x = along == Qt::Horizontal;
    QList<int> found;
    for (int a = 0; a < (x ? rect.width() : rect.height()); ++a)
        for (int b = 0; b < (x ? rect.height() : rect.width()); ++b) {
            const QColor c = image.pixelColor(rect.topLeft() + (x ? QPoint(a, b) : QPoint(b, a)));
            if (qMax(c.red(), qMax(c.green(), c.blue())) < 120) {
                found << (x ? rect.left() : rect.top()) + a;
                break;
            }
        }
    return found;
}

} // namespace quillon
