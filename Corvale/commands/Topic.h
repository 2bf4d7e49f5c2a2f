#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace corvale {

// A page of the help.
struct Topic {
    QString id;  // unique
    QString title;
    QString symbol;  // as Icons names it
    QStringList paragraphs;

    // Whether every word of the search stands in the title or a paragraph, whatever the letter case.
    bool contains(const QString& search) const;
};

// The pages of the help, in their order.
QList<Topic> helpTopics();

}  // namespace corvale
