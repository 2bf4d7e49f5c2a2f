#pragma once

#include <QList>
#include <QUrl>

namespace corvale::TestSupport {

// What a user without eyes picks in panels; empty to dismiss them.
struct PanelAnswers {
    QList<QUrl> files;
    QUrl target;
};

}  // namespace corvale::TestSupport
