#include <iconv.h>

#include <array>
#include <cerrno>
#include <new>
#include <optional>
#include <string>
#include <utility>

#include "CorvaleKit/loading/CSV.h"
#include "CorvaleKit/text/Utf8.h"

namespace corvale::CSV {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

class Converter {
public:
    explicit Converter(const char* encoding) : m_handle(iconv_open("UTF-8", encoding)) {
        if (!isOpen() && errno == ENOMEM) {
            throw std::bad_alloc();
        }
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;
    ~Converter() {
        if (isOpen()) {
            iconv_close(m_handle);
        }
    }

    // None when the bytes are not all well-formed in the encoding.
    std::optional<std::string> utf8(std::string_view bytes) {
        if (!isOpen()) {
            return std::nullopt;
        }
        std::string result;
        std::array<char, 64 * 1024> chunk;  // NOLINT(cppcoreguidelines-pro-type-member-init): iconv fills it
        char* in = const_cast<char*>(bytes.data());
        std::size_t inLeft = bytes.size();
        while (inLeft > 0) {
            char* out = chunk.data();
            std::size_t outLeft = chunk.size();
            const std::size_t converted = iconv(m_handle, &in, &inLeft, &out, &outLeft);
            result.append(chunk.data(), chunk.size() - outLeft);
            if (converted == static_cast<std::size_t>(-1) && errno != E2BIG) {
                return std::nullopt;
            }
        }
        return result;
    }

private:
    bool isOpen() const { return m_handle != reinterpret_cast<iconv_t>(-1); }

    iconv_t m_handle;
};

Bytes fromUtf16(std::string_view bytes, const char* encoding) {
    const auto decoded = Converter(encoding).utf8(bytes);
    std::string_view text = decoded ? std::string_view(*decoded) : std::string_view();
    while (text.substr(0, byteOrderMark.size()) == byteOrderMark) {
        text.remove_prefix(byteOrderMark.size());
    }
    return Bytes(text);
}

Bytes fromUtf8(Bytes bytes) {
    return Utf8::isValid(bytes.view()) ? std::move(bytes) : Bytes(Utf8::repaired(bytes.view()));
}

}  // namespace

Bytes decodeText(Bytes bytes) {
    const std::string_view view = bytes.view();
    if (view.substr(0, byteOrderMark.size()) == byteOrderMark) {
        bytes.removePrefix(byteOrderMark.size());
        return fromUtf8(std::move(bytes));
    }
    if (view.substr(0, 2) == "\xFF\xFE") {
        return fromUtf16(view, "UTF-16LE");
    }
    if (view.substr(0, 2) == "\xFE\xFF") {
        return fromUtf16(view, "UTF-16BE");
    }
    if (Utf8::isValid(view)) {
        return bytes;
    }
    if (const auto decoded = Converter("CP1252").utf8(view)) {
        return Bytes(*decoded);
    }
    return Bytes(Utf8::repaired(view));
}

}  // namespace corvale::CSV
