#pragma once

#include <QUrl>
#include <cstdint>
#include <optional>

#include "Corvale/model/LoadedFile.h"
#include "Corvale/model/Platform.h"

// Turns files into LoadedFile records. Runs on any thread; throws UserFailure and std::bad_alloc.
namespace corvale::FileLoading {

// Without folders, valid UTF-8.
std::string nameOf(const QUrl& url);

// A file as it is when it is opened: first sheet, header row chosen automatically.
LoadedFile read(Platform& platform, const QUrl& url);

// Reads `old` from disk anew with its choices: the sheet of the same name, else the first one, and the chosen header
// row, else the automatic one where that row or its sheet is gone, or the row is blank now.
LoadedFile readAgain(Platform& platform, const LoadedFile& old);

// The bytes of `old`, which it has, read with the choices that it has now; its table may come from others.
LoadedFile reparsed(const LoadedFile& old);

}  // namespace corvale::FileLoading
