// print_painter.h — Qt skin: paints a grid's printed pages, as the workbench laid them out, on
// any paged device: the printer behind the print preview, or a PDF file. Only this file knows
// how a page looks (fonts, fills, lines); where things stand comes from the layout.
#pragma once

#include <QPagedPaintDevice>
#include <QPainter>

#include "workbench/print_layout.h"

namespace quillon {

class FlexGrid;

// The paper of the device, upright, with its orientation asked for.
PaperSpec PaperOf(const QPagedPaintDevice& device);

// Sets the device to the layout's A4 paper, turned as the layout says, drawn to its edges (the
// layout keeps the margins itself). Call before painting starts.
void SetDevicePaper(QPagedPaintDevice& device, const PrintLayout& layout);

// One page, on a painter whose units are twips from the paper's top-left corner.
void PaintPrintPage(QPainter& painter, const PrintLayout& layout, const PrintPage& page,
                    const FlexGrid& grid);

// Every page of the layout with the grid's texts, alignments and colours, one device page each.
// Throws std::runtime_error when the device cannot be painted on.
void PaintPrintLayout(const PrintLayout& layout, const FlexGrid& grid, QPagedPaintDevice& device);

} // namespace quillon
