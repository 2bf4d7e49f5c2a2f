#pragma once

class QMessageBox;
class QString;
class QWidget;

namespace corvale {

// A message over a window, without buttons yet. Who opens it does not wait; it is gone once it is closed. What it says
// is never taken for HTML, which may load pictures.
QMessageBox* makeAlert(QWidget& window, const QString& title, const QString& message);

}  // namespace corvale
