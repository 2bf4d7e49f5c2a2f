#pragma once

#include <QList>
#include <QObject>
#include <QStringList>
#include <QUrl>

namespace corvale {

class AppModel;

// Opens the files that the desktop passes: as arguments at the start, on macOS as events at any time. One fills Before,
// two fill both sides.
class AppDelegate : public QObject {
    Q_OBJECT

public:
    // The model outlives the delegate.
    explicit AppDelegate(AppModel& model);

    // Plain paths or addresses; a relative path is one from the current folder. There are no options. What is passed
    // over, empty names and files after the second, is told on standard error.
    void open(const QStringList& arguments);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void openWhatCame();

    AppModel& m_model;
    QList<QUrl> m_came;
};

}  // namespace corvale
