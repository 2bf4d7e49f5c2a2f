#pragma once

#include <QDialog>

namespace corvale {

// A window beside the main one, of which there is one of each kind: what asks for it again brings it to the front.
class AuxiliaryWindow : public QDialog {
    Q_OBJECT

public:
    AuxiliaryWindow(const QString& title, QWidget* parent);

    // In front, with the keyboard.
    void open() override;
};

}  // namespace corvale
