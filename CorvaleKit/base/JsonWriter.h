#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace corvale {

// Writes one JSON document (RFC 8259) piece by piece, without holding it: a table of a million rows needs a buffer of a
// few kilobytes. Commas and escapes are its business, nesting and valid UTF-8 are the caller's.
class JsonWriter {
public:
    // Receives consecutive pieces of the document.
    using Sink = std::function<void(std::string_view)>;

    explicit JsonWriter(Sink sink) : m_sink(std::move(sink)) {}
    // Into a string, which outlives the writer.
    explicit JsonWriter(std::string& target);
    JsonWriter(const JsonWriter&) = delete;
    JsonWriter& operator=(const JsonWriter&) = delete;
    ~JsonWriter() = default;

    void beginObject();
    void endObject();
    void beginArray();
    void endArray();
    void key(std::string_view name);
    void text(std::string_view value);
    // The same as text("") so many times.
    void emptyTexts(std::size_t count);
    // An array of whatever texts a range holds.
    template <typename Texts>
    void texts(const Texts& values) {
        beginArray();
        for (const auto& value : values) {
            text(value);
        }
        endArray();
    }
    void integer(std::int64_t value);
    // An array of them.
    void integers(const std::vector<std::int64_t>& values);
    // The shortest text that reads back to the same double; null for infinities and NaN.
    void number(double value);
    void boolean(bool value);
    void null();
    // Puts the value or key that comes next on a new line; one must come.
    void lineBreak();

    // Hands what is buffered to the sink; call it once at the end.
    void flush();

private:
    void separate();
    void quoted(std::string_view value);
    void appendEscaped(unsigned char byte);
    void open(char bracket);
    void close(char bracket);
    void finishValue();

    Sink m_sink;
    std::string m_buffer;
    bool m_needsComma = false;
};

}  // namespace corvale
