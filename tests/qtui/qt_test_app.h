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

// Columns (x) of the image, within a rectangle, that hold a pixel darker than `limit`
// on all three channels: where text was drawn.
inline QList<int> DarkColumns(const QImage& image, const QRect& rect, int limit = 120) {
    QList<int> columns;
    for (int x = rect.left(); x <= rect.right(); ++x)
        for (int y = rect.top(); y <= rect.bottom(); ++y) {
            const QColor c = image.pixelColor(x, y);
            if (c.red() < limit && c.green() < limit && c.blue() < limit) {
                columns << x;
                break;
            }
        }
    return columns;
}

inline QList<int> DarkRows(const QImage& image, const QRect& rect, int limit = 120) {
    QList<int> rows;
    for (int y = rect.top(); y <= rect.bottom(); ++y)
        for (int x = rect.left(); x <= rect.right(); ++x) {
            const QColor c = image.pixelColor(x, y);
            if (c.red() < limit && c.green() < limit && c.blue() < limit) {
                rows << y;
                break;
            }
        }
    return rows;
}

} // namespace quillon
