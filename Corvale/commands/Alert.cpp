#include "Corvale/commands/Alert.h"

#include <QMessageBox>

namespace corvale {

QMessageBox* makeAlert(QWidget& window, const QString& title, const QString& message) {
    auto* const alert = new QMessageBox(&window);
    alert->setAttribute(Qt::WA_DeleteOnClose);
    alert->setWindowTitle(title);
    alert->setTextFormat(Qt::PlainText);
    alert->setText(title);
    alert->setInformativeText(message);
    return alert;
}

}  // namespace corvale
