#pragma once

#include <QString>
#include <cstdint>
#include <string>
#include <string_view>

#include "CorvaleKit/engine/DiffResult.h"

namespace corvale {

enum class ReportKind : std::uint8_t { excel, html };

// What an export writes, and under which name.
namespace ReportExport {

// Without a dot.
QString extension(ReportKind kind);

// The name of the newer file with " changes" in place of its extension, in the user's language.
QString defaultName(const DiffResult& result, ReportKind kind);

// The whole report. `language` is an ISO 639 code; Spanish has its own texts, every other one gets English. On any
// thread. Throws UserFailure and std::bad_alloc.
std::string bytes(const DiffResult& result, ReportKind kind, bool includeUnchanged, std::string_view language);

}  // namespace ReportExport
}  // namespace corvale
