#include "Corvale/commands/FurtherWindow.h"

namespace corvale {

FurtherWindow::FurtherWindow(const QString& title, QWidget* parent) : QDialog(parent) { setWindowTitle(title); }

void FurtherWindow::open() {
    show();
    raise();
    activateWindow();
}

}  // namespace corvale
