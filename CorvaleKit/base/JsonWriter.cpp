#include "CorvaleKit/base/JsonWriter.h"

#include <algorithm>
#include <cmath>

#include "CorvaleKit/base/Numbers.h"

namespace corvale {

namespace {

constexpr std::size_t flushSize = 64 * 1024;

bool isPlain(char c) { return static_cast<unsigned char>(c) >= 0x20 && c != '"' && c != '\\'; }

}  // namespace

JsonWriter::JsonWriter(std::string& target) : m_sink([&target](std::string_view piece) { target += piece; }) {}

void JsonWriter::separate() {
    if (m_needsComma) {
        m_buffer += ',';
    }
}

void JsonWriter::finishValue() {
    m_needsComma = true;
    if (m_buffer.size() >= flushSize) {
        flush();
    }
}

void JsonWriter::open(char bracket) {
    separate();
    m_buffer += bracket;
    m_needsComma = false;
}

void JsonWriter::close(char bracket) {
    m_buffer += bracket;
    finishValue();
}

void JsonWriter::beginObject() { open('{'); }
void JsonWriter::endObject() { close('}'); }
void JsonWriter::beginArray() { open('['); }
void JsonWriter::endArray() { close(']'); }

void JsonWriter::key(std::string_view name) {
    separate();
    quoted(name);
    m_buffer += ':';
    m_needsComma = false;
}

void JsonWriter::text(std::string_view value) {
    separate();
    quoted(value);
    finishValue();
}

void JsonWriter::emptyTexts(std::size_t count) {
    static const std::string many = [] {
        std::string texts;
        for (std::size_t i = 0; i < 1000; ++i) {
            texts += ",\"\"";
        }
        return texts;
    }();
    constexpr std::size_t length = 3;
    if (count > 0 && !m_needsComma) {
        text("");
        --count;
    }
    while (count > 0) {
        const std::size_t written = std::min(count, many.size() / length);
        m_buffer.append(many, 0, written * length);
        count -= written;
        finishValue();
    }
}

void JsonWriter::integer(std::int64_t value) {
    separate();
    Numbers::append(m_buffer, value);
    finishValue();
}

void JsonWriter::integers(const std::vector<std::int64_t>& values) {
    beginArray();
    for (const std::int64_t value : values) {
        integer(value);
    }
    endArray();
}

void JsonWriter::number(double value) {
    if (!std::isfinite(value)) {
        null();
        return;
    }
    separate();
    Numbers::append(m_buffer, value);
    finishValue();
}

void JsonWriter::boolean(bool value) {
    separate();
    m_buffer += value ? "true" : "false";
    finishValue();
}

void JsonWriter::null() {
    separate();
    m_buffer += "null";
    finishValue();
}

void JsonWriter::lineBreak() {
    separate();
    m_buffer += '\n';
    m_needsComma = false;
}

void JsonWriter::quoted(std::string_view value) {
    m_buffer += '"';
    std::size_t plainFrom = 0;
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (!isPlain(value[i])) {
            m_buffer.append(value, plainFrom, i - plainFrom);
            appendEscaped(static_cast<unsigned char>(value[i]));
            plainFrom = i + 1;
        }
    }
    m_buffer.append(value, plainFrom, std::string_view::npos);
    m_buffer += '"';
}

void JsonWriter::appendEscaped(unsigned char byte) {
    constexpr std::string_view hex = "0123456789abcdef";
    switch (byte) {
        case '"':
            m_buffer += "\\\"";
            return;
        case '\\':
            m_buffer += "\\\\";
            return;
        case '\n':
            m_buffer += "\\n";
            return;
        case '\r':
            m_buffer += "\\r";
            return;
        case '\t':
            m_buffer += "\\t";
            return;
        default:
            m_buffer += "\\u00";
            m_buffer += hex[byte >> 4U];
            m_buffer += hex[byte & 0xFU];
    }
}

void JsonWriter::flush() {
    if (!m_buffer.empty()) {
        m_sink(m_buffer);
        m_buffer.clear();
    }
}

}  // namespace corvale
