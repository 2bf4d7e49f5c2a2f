#include "tests/end-to-end/DragSource.h"

#include <QDrag>
#include <QMimeData>
#include <QTimer>
#include <memory>

#include "tests/end-to-end/User.h"

namespace corvale::TestSupport {

namespace {

constexpr QSize handleSize(60, 60);
constexpr int moveTime = 50;  // milliseconds

}  // namespace

DragSource::DragSource(QPoint position) {
    setWindowFlag(Qt::X11BypassWindowManagerHint);
    setGeometry(QRect(position, handleSize));
    show();
}

bool DragSource::dragTo(QPoint target, const QList<QUrl>& files, int mostMoves) {
    m_mostMoves = mostMoves;
    m_target = target;
    m_files = files;
    m_isDone = false;
    m_isTaken = false;
    User::pressMouse(geometry().center());
    return User::waitUntil([this] { return m_isDone; }) && m_isTaken;
}

void DragSource::mousePressEvent(QMouseEvent*) {
    auto* const drag = new QDrag(this);
    auto dragged = std::make_unique<QMimeData>();
    dragged->setUrls(m_files);
    drag->setMimeData(dragged.release());
    // The drag has an event loop of its own, in which the hand goes on: there, a little around, and off when the target
    // says that it would copy.
    int moves = 0;
    Qt::DropAction offered = Qt::IgnoreAction;
    QTimer hand;
    connect(drag, &QDrag::actionChanged, this, [&offered](Qt::DropAction action) { offered = action; });
    connect(&hand, &QTimer::timeout, this, [&] {
        ++moves;
        if (offered == Qt::CopyAction || moves > m_mostMoves) {
            hand.stop();
            User::releaseMouse();
        } else {
            User::moveMouse(m_target + QPoint(moves % 2, 0));
        }
    });
    hand.start(moveTime);
    m_isTaken = drag->exec(Qt::CopyAction) == Qt::CopyAction;
    m_isDone = true;
}

}  // namespace corvale::TestSupport
