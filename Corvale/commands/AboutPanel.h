#pragma once

#include <QDialog>
#include <QString>

namespace corvale {

// What a message to support should begin with: versions and the system, nothing of the user's files.
QString supportDetails();

// Says what the program is, which version, and what it is made with.
class AboutPanel : public QDialog {
    Q_OBJECT

public:
    explicit AboutPanel(QWidget* parent);

    // In front, with the keyboard.
    void open() override;

private:
    void layOut();
    QWidget* makeLicenses();
};

}  // namespace corvale
