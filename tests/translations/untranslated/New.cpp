#include <QCoreApplication>

QString added() { return QCoreApplication::translate("New", "A text that nobody has translated"); }
