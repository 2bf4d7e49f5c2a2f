#pragma once

#include <QUrl>
#include <string_view>

#include "CorvaleKit/base/Bytes.h"

// Files on this machine, read and written whole. On any thread.
namespace corvale::LocalFile {

// Refuses what is no regular file, so that a pipe or a device never makes the program wait. Throws UserFailure, a
// sentence that names the file, and std::bad_alloc for a file that takes more than half of the machine's memory.
Bytes read(const QUrl& url);

// Replaces the file, or makes it, in one step; access rights are those of the old one, and a link stays a link. Throws
// UserFailure, the reason alone, a sentence. A process that ignores SIGXFSZ is told of limits on file sizes this way
// too.
void write(const QUrl& url, std::string_view bytes);

}  // namespace corvale::LocalFile
