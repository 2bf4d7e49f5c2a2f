#pragma once

#include <QString>

#include "Corvale/commands/AuxiliaryWindow.h"

namespace corvale {

// What a message to support should begin with: versions and the system, nothing of the user's files.
QString supportDetails();

// Says what the program is, which version, and what it is made with.
class AboutPanel : public AuxiliaryWindow {
    Q_OBJECT

public:
    explicit AboutPanel(QWidget* parent);

private:
    void layOut();
    QWidget* makeLicenses();
};

}  // namespace corvale
