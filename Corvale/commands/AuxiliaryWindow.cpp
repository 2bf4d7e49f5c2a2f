#include "Corvale/commands/AuxiliaryWindow.h"

namespace corvale {

AuxiliaryWindow::AuxiliaryWindow(const QString& title, QWidget* parent) : QDialog(parent) { setWindowTitle(title); }

void AuxiliaryWindow::open() {
    show();
    raise();
    activateWindow();
}

}  // namespace corvale
