#include "Corvale/platform/LocalFile.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include "CorvaleKit/base/Failures.h"

namespace corvale::LocalFile {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(LocalFile)
};

UserFailure failure(const QString& message) { return UserFailure(message.toStdString()); }

UserFailure notOpened(const QString& name, const QString& reason) {
    return failure(Texts::tr("“%1” couldn’t be opened: %2").arg(name, reason));
}

UserFailure changed(const QString& name) {
    return failure(Texts::tr("“%1” changed while it was being read. Try again.").arg(name));
}

void requireRegular(const QUrl& url, const QString& name) {
    if (!url.isLocalFile()) {
        throw failure(Texts::tr("“%1” isn’t on this computer. Copy it here first.").arg(name));
    }
    const QFileInfo info(url.toLocalFile());
    if (info.isDir()) {
        throw failure(Texts::tr("“%1” is a folder.").arg(name));
    }
    if (info.exists() && !info.isFile()) {
        throw failure(Texts::tr("“%1” isn’t a regular file.").arg(name));
    }
}

}  // namespace

Bytes read(const QUrl& url) {
    const QString name = url.fileName().isEmpty() ? url.toDisplayString(QUrl::PreferLocalFile) : url.fileName();
    requireRegular(url, name);
    QFile file(url.toLocalFile());
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        throw notOpened(name, file.errorString());
    }
    const qint64 size = file.size();
    Bytes bytes(static_cast<std::size_t>(size));
    for (qint64 done = 0; done < size;) {
        const qint64 count = file.read(bytes.data() + done, size - done);
        if (count < 0) {
            throw notOpened(name, file.errorString());
        }
        if (count == 0) {
            throw changed(name);
        }
        done += count;
    }
    if (char more = 0; file.read(&more, 1) > 0) {
        throw changed(name);
    }
    return bytes;
}

void write(const QUrl& url, std::string_view bytes) {
    QSaveFile file(url.toLocalFile());
    if (!file.open(QIODevice::WriteOnly)) {
        throw failure(file.errorString());
    }
    file.write(bytes.data(), static_cast<qint64>(bytes.size()));
    if (!file.commit()) {
        throw failure(file.errorString());
    }
}

}  // namespace corvale::LocalFile
