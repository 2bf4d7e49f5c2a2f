#pragma once

#include <QList>
#include <QPoint>
#include <QUrl>
#include <QWidget>

namespace corvale::TestSupport {

// A window beside the program's, from which the user drags files as from a file manager.
class DragSource : public QWidget {
public:
    // In pixels of the screen.
    explicit DragSource(QPoint position);

    // Drags the files to a place on the screen, and drops them once what is there would take them, or after so many
    // moves of the hand, of which each takes a twentieth of a second. False when it does not take them.
    bool dragTo(QPoint target, const QList<QUrl>& files, int mostMoves = 200);

protected:
    void mousePressEvent(QMouseEvent* event) override;

private:
    QPoint m_target;
    QList<QUrl> m_files;
    int m_mostMoves = 0;
    bool m_isDone = false;
    bool m_isTaken = false;
};

}  // namespace corvale::TestSupport
