#pragma once

#include <QString>
#include <exception>

// What the window says of a failure, in the user's language.
namespace corvale::FailureTexts {

// Of a file that could not be opened. Where the window can help better than the library's own sentence, that help is
// added here.
QString ofLoading(const std::exception_ptr& failure);

// Of a report that could not be written.
QString ofExporting(const std::exception_ptr& failure);

// Of a comparison that could not be finished.
QString ofComparing(const std::exception_ptr& failure);

}  // namespace corvale::FailureTexts
