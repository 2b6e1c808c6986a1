// grid_view.h — the grid view's tests: a grid model drawn by its binding, and the user's mouse
// on it.
#pragma once

#include <QApplication>
#include <QMouseEvent>

#include <memory>

#include "controls/flex_grid.h"
#include "qt_test_app.h"
#include "qtui/control_binding.h"
#include "qtui/flex_grid_widget.h"
#include "qtui/qt_convert.h"

namespace quillon {

// A grid model drawn by its binding, sized in pixels.
struct GridView {
    WithApp app;
    FlexGrid grid{"MSFlexGrid1"};
    QWidget host;
    std::unique_ptr<ControlBinding> binding;
    FlexGridWidget* view = nullptr;

    GridView(int rows, int cols, int width = 400, int height = 300) {
        grid.SetRows(rows);
        grid.SetCols(cols);
        grid.Move(0, 0, PixelsToTwips(width), PixelsToTwips(height));
        binding = BindControl(grid, &host);
        view = dynamic_cast<FlexGridWidget*>(binding->Widget());
        host.resize(width, height);
        host.show();
        QApplication::processEvents();
        view->clearFocus(); // no focus mark over the cells a test looks at
    }

    QImage Paint() { return Snapshot(*view->viewport()); }
    QColor PixelAtCentre(int row, int col) { return Paint().pixelColor(view->CellRect(row, col).center()); }

    void Mouse(QEvent::Type type, QPointF at, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, at, view->viewport()->mapToGlobal(at), button, held, modifiers);
        QApplication::sendEvent(view->viewport(), &event);
    }
    void Mouse(QEvent::Type type, int row, int col) { Mouse(type, view->CellRect(row, col).center()); }
    void Click(QPointF at) {
        Mouse(QEvent::MouseButtonPress, at);
        Mouse(QEvent::MouseButtonRelease, at);
    }
    void Click(int row, int col) { Click(view->CellRect(row, col).center()); }
};

} // namespace quillon
