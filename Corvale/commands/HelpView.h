#pragma once

#include <QList>
#include <QString>

#include "Corvale/commands/AuxiliaryWindow.h"
#include "Corvale/commands/Topic.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTextBrowser;

namespace corvale {

class Theme;

// The help: its topics at the left, what the selected one says at the right. A window of its own beside the main one,
// which can be read whatever the main one asks, and does not keep the program open.
class HelpView : public AuxiliaryWindow {
    Q_OBJECT

public:
    // The theme outlives the window.
    HelpView(Theme& theme, QWidget* parent);

    // The id of the topic that shows; "start" at first.
    const QString& selected() const { return m_selected; }
    void select(const QString& id);
    // In front, with the keyboard; all topics are listed when it was closed.
    void open() override;

Q_SIGNALS:
    // The user wants to write to support.
    void emailWanted();

private:
    void layOut();
    QWidget* makeSidebar();
    QWidget* makeArticle();
    void drawIcons();
    void filterTopics();
    void takeSelection();
    void showTopic();

    Theme& m_theme;
    QList<Topic> m_topics;
    QString m_selected;
    QLineEdit* m_search;
    QListWidget* m_list;
    QLabel* m_nothing;
    QTextBrowser* m_text;
    QPushButton* m_email;
};

}  // namespace corvale
