#include "tests/end-to-end/DragSource.h"

#include <QDrag>
#include <QMimeData>
#include <QTimer>
#include <memory>

#include "tests/end-to-end/User.h"

namespace corvale::TestSupport {

namespace {

constexpr QSize size(60, 60);
// Between two moves of the mouse, and how many of them a target has to make up its mind.
constexpr int stepTime = 50;  // milliseconds
constexpr int mostSteps = 200;

}  // namespace

DragSource::DragSource(QPoint position) {
    setWindowFlag(Qt::X11BypassWindowManagerHint);
    setGeometry(QRect(position, size));
    show();
}

bool DragSource::dragTo(QPoint target, const QList<QUrl>& files) {
    m_target = target;
    m_files = files;
    m_isDone = false;
    m_isTaken = false;
    User::pressMouse(geometry().center());
    return User::waitUntil([this] { return m_isDone; }) && m_isTaken;
}

void DragSource::mousePressEvent(QMouseEvent*) {
    auto* const drag = new QDrag(this);
    auto data = std::make_unique<QMimeData>();
    data->setUrls(m_files);
    drag->setMimeData(data.release());
    // The drag has an event loop of its own, in which the hand goes on: there, a little around, and off when the target
    // says that it would copy.
    int step = 0;
    Qt::DropAction offered = Qt::IgnoreAction;
    QTimer hand;
    connect(drag, &QDrag::actionChanged, this, [&offered](Qt::DropAction action) { offered = action; });
    connect(&hand, &QTimer::timeout, this, [&] {
        ++step;
        if (offered == Qt::CopyAction || step > mostSteps) {
            hand.stop();
            User::releaseMouse();
        } else {
            User::moveMouse(m_target + QPoint(step % 2, 0));
        }
    });
    hand.start(stepTime);
    m_isTaken = drag->exec(Qt::CopyAction) == Qt::CopyAction;
    m_isDone = true;
}

}  // namespace corvale::TestSupport
