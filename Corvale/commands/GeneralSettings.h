#pragma once

#include <QWidget>
#include <vector>

class QCheckBox;
class QComboBox;
class QVBoxLayout;

namespace corvale {

class AppModel;
struct AppSettings;
class Theme;

// What the user can set for good, in groups.
class GeneralSettings : public QWidget {
    Q_OBJECT

public:
    // Both outlive the widget.
    GeneralSettings(AppModel& model, Theme& theme, QWidget* parent);

    void refresh();

private:
    struct Toggle {
        QCheckBox* box;
        bool& (*field)(AppSettings& settings);
    };

    void layOut();
    // Begins a group under its title, and returns where its lines go.
    QVBoxLayout* addGroup(const QString& title);
    void addLine(QVBoxLayout* group, QWidget* content, const QString& label = {});
    void addToggle(QVBoxLayout* group, const QString& text, bool& (*field)(AppSettings& settings));
    QComboBox* makeNumbers();

    AppModel& m_model;
    Theme& m_theme;
    QVBoxLayout* m_column;
    std::vector<Toggle> m_toggles;
    QComboBox* m_numbers = nullptr;
};

}  // namespace corvale
