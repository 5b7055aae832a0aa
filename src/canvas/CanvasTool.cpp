#include "canvas/CanvasTool.h"

CanvasTool::~CanvasTool() = default;

void CanvasTool::mousePressed(QMouseEvent *) {}

void CanvasTool::mouseMoved(QMouseEvent *) {}

void CanvasTool::preview(Layer2Image &) {}

void CanvasTool::paintOver(QPainter &) {}
