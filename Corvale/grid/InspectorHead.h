#pragma once

#include <QWidget>

#include "CorvaleKit/engine/DiffResult.h"

class QBoxLayout;
class QLabel;

namespace corvale {

class AppModel;
class Theme;
class ValueText;

// What row is selected: its key and status, its numbers, what changed in a line; and the titles of the two columns
// below.
class InspectorHead : public QWidget {
    Q_OBJECT

public:
    // Both outlive the head.
    InspectorHead(AppModel& model, const Theme& theme, QWidget* parent);

    // There is a selected row. Also when the theme has changed.
    void refresh();
    // That of the fields below, which a scroll bar may narrow.
    void setFieldWidth(int width);

    QString key() const { return m_keyText; }
    QString status() const;
    QString beforeNumber() const;
    QString afterNumber() const;
    QString summary() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void addRows();
    void updateFonts();
    void updateColors();
    void showStatus(const DiffRow& row);
    void showChanges(const DiffResult& result, const DiffRow& row);
    void elideKey();
    void fitNumbers();
    void fitSummary();
    void showSummary(qsizetype units);
    int titlesHeight() const;

    AppModel& m_model;
    const Theme& m_theme;
    QString m_keyText;
    QString m_summaryText;  // all of it
    QLabel* m_key;
    QLabel* m_symbol;
    QLabel* m_status;
    QLabel* m_before;
    QLabel* m_after;
    QBoxLayout* m_numbers = nullptr;
    ValueText* m_summary;
    int m_fieldWidth = 0;
};

}  // namespace corvale
