#pragma once

#include <QUrl>
#include <cstdint>
#include <optional>
#include <string>

#include "Corvale/model/LoadedFile.h"
#include "Corvale/model/Platform.h"
#include "CorvaleKit/engine/Callbacks.h"

// Turns files into LoadedFile records. Runs on any thread; throws UserFailure and std::bad_alloc, and Cancelled when
// asked to stop.
namespace corvale::FileLoading {

// Without folders, valid UTF-8.
std::string nameOf(const QUrl& url);

// A file as it is when it is opened: first sheet, header row chosen automatically. Where the first sheets are empty,
// the next one is taken: without a file there is no menu to choose it from.
LoadedFile read(Platform& platform, const QUrl& url, const CancelCheck& isCancelled = {});

// Reads `old` from disk anew with its choices: the sheet of the same name, else the first one, and the chosen header
// row, else the automatic one where that row or its sheet is gone, or the row is blank now.
LoadedFile readAgain(Platform& platform, const LoadedFile& old, const CancelCheck& isCancelled = {});

// The bytes of `old`, which it has, read with the choices that it has now; its table may come from others. A header row
// that is not there or blank gives way to the automatic one.
LoadedFile reparsed(const LoadedFile& old);

}  // namespace corvale::FileLoading
