#pragma once

#include <QLineEdit>

namespace corvale {

class AppModel;
class Theme;

// Searches the list while typing. Takes the keyboard when the model asks for it.
class SearchField : public QLineEdit {
    Q_OBJECT

public:
    // Both outlive the field.
    SearchField(AppModel& model, Theme& theme, QWidget* parent);

    bool focused() const { return hasFocus(); }
    void refresh();

protected:
    // Files are for the window, not their names for the field.
    void dragEnterEvent(QDragEnterEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void search(const QString& text);
    void takeFocus();
    void drawIcons();

    AppModel& m_model;
    Theme& m_theme;
    QAction* m_symbol;
    QAction* m_clear;
};

}  // namespace corvale
