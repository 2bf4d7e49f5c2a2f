#pragma once

#include <QWidget>
#include <cstdint>

class QLabel;

namespace corvale {

class Theme;

// A picture, a title and a sentence in the middle of a pane that has nothing to show.
class GridPlaceholder : public QWidget {
    Q_OBJECT

public:
    enum class Subject : std::uint8_t { noRowsMatch, noDifferences, noRowSelected };

    // The theme outlives the placeholder.
    GridPlaceholder(Subject subject, const Theme& theme, QWidget* parent);

    void setSubject(Subject subject);
    Subject subject() const { return m_subject; }
    // Its name.
    QString symbol() const;
    // Title and sentence, to be read out.
    QString message() const;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    class Picture;

    void updateFonts();
    void lift();

    Subject m_subject;
    const Theme& m_theme;
    Picture* m_picture;
    QLabel* m_title;
    QLabel* m_text;
};

}  // namespace corvale
