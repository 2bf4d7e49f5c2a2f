#include "Corvale/platform/LocalFile.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <cstdint>
#include <new>

#include "CorvaleKit/base/Failures.h"
#include "CorvaleKit/base/Memory.h"
#include "CorvaleKit/base/SystemFiles.h"

namespace corvale::LocalFile {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(LocalFile)
};

UserFailure failure(const QString& message) { return UserFailure(message.toStdString()); }

QString shownName(const QUrl& url) {
    return url.fileName().isEmpty() ? url.toDisplayString(QUrl::PreferLocalFile) : url.fileName();
}

// What the system says, as the sentence that our own texts are.
QString reasonOf(const QFileDevice& file) {
    const QString reason = file.errorString();
    return reason.endsWith(u'.') ? reason : reason + u'.';
}

UserFailure notOpened(const QString& name, const QFileDevice& file) {
    return failure(Texts::tr("“%1” couldn’t be opened: %2").arg(name, reasonOf(file)));
}

UserFailure notRead(const QString& name, const QFileDevice& file) {
    return failure(Texts::tr("“%1” couldn’t be read: %2").arg(name, reasonOf(file)));
}

UserFailure changed(const QString& name) {
    return failure(Texts::tr("“%1” changed while it was being read. Try again.").arg(name));
}

// Told before opening: opening a pipe waits for its other end.
void requireRegular(const QUrl& url) {
    const QString name = shownName(url);
    if (!url.isLocalFile()) {
        throw failure(Texts::tr("“%1” isn’t on this computer.").arg(name));
    }
    const QFileInfo info(url.toLocalFile());
    if (info.isDir()) {
        throw failure(Texts::tr("“%1” is a folder.").arg(name));
    }
    if (info.exists() && !info.isFile()) {
        throw failure(Texts::tr("“%1” isn’t a regular file.").arg(name));
    }
}

// Fills `bytes`, or fails.
void readExactly(QFile& file, Bytes& bytes, const QString& name) {
    const auto size = static_cast<qint64>(bytes.size());
    for (qint64 done = 0; done < size;) {
        const qint64 count = file.read(bytes.data() + done, size - done);
        if (count < 0) {
            throw notRead(name, file);
        }
        if (count == 0) {
            throw changed(name);
        }
        done += count;
    }
}

void requireWritable(const QUrl& url) {
    requireRegular(url);
    const QFileInfo info(url.toLocalFile());
    // Replacing a file takes no right to write to it; who took that right away means it to stay.
    if (info.exists() && !info.isWritable()) {
        throw failure(Texts::tr("“%1” is write-protected.").arg(shownName(url)));
    }
}

}  // namespace

Bytes read(const QUrl& url) {
    requireRegular(url);
    const QString name = shownName(url);
    QFile file(url.toLocalFile());
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        throw notOpened(name, file);
    }
    const auto writtenBefore = SystemFiles::lastWrite(file.handle());
    // The bytes and the table that is made of them are held at once.
    if (static_cast<std::uint64_t>(file.size()) > Memory::physicalSize() / 2) {
        throw std::bad_alloc();
    }
    Bytes bytes(static_cast<std::size_t>(file.size()));
    readExactly(file, bytes, name);
    char more = 0;
    if (const qint64 count = file.read(&more, 1); count != 0) {
        throw count < 0 ? notRead(name, file) : changed(name);
    }
    // Written anew in its place and to the same length, it would be half the old file and half the new one.
    if (SystemFiles::lastWrite(file.handle()) != writtenBefore) {
        throw changed(name);
    }
    return bytes;
}

void write(const QUrl& url, std::string_view bytes) {
    requireWritable(url);
    QSaveFile file(url.toLocalFile());
    // Without a buffer, so that a full disk is told by the write that meets it, and with its reason.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        throw failure(reasonOf(file));
    }
    while (!bytes.empty()) {
        const qint64 count = file.write(bytes.data(), static_cast<qint64>(bytes.size()));
        if (count < 0) {
            throw failure(reasonOf(file));
        }
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    if (!file.commit()) {
        throw failure(reasonOf(file));
    }
}

}  // namespace corvale::LocalFile
