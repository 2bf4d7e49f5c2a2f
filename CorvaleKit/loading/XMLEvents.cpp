#include "CorvaleKit/loading/XMLEvents.h"

#include <expat.h>

#include <algorithm>
#include <exception>
#include <memory>
#include <new>
#include <type_traits>

#include "CorvaleKit/loading/XLSX.h"

namespace corvale::XMLEvents {

namespace {

// The parser keeps memory for every open element; real parts nest a dozen deep.
constexpr int deepestElement = 1000;

std::string_view withoutPrefix(const char* qualifiedName) {
    const char* start = qualifiedName;
    const char* end = start;
    for (; *end != '\0'; ++end) {
        if (*end == ':') {
            start = end + 1;
        }
    }
    return {start, static_cast<std::size_t>(end - start)};
}

class Walk {
public:
    explicit Walk(Handler& handler) : m_parser(XML_ParserCreate(nullptr), &XML_ParserFree), m_handler(handler) {
        if (!m_parser) {
            throw std::bad_alloc();
        }
        XML_SetUserData(m_parser.get(), this);
        XML_SetElementHandler(m_parser.get(), &onStart, &onEnd);
        XML_SetCharacterDataHandler(m_parser.get(), &onText);
    }

    void feed(std::string_view bytes, bool isLast) {
        const auto status = XML_Parse(m_parser.get(), bytes.data(), static_cast<int>(bytes.size()), isLast ? 1 : 0);
        if (m_failure) {
            std::rethrow_exception(m_failure);
        }
        if (status != XML_STATUS_OK) {
            fail(XML_GetErrorCode(m_parser.get()));
        }
    }

private:
    [[noreturn]] static void fail(XML_Error error) {
        if (error == XML_ERROR_NO_MEMORY) {
            throw std::bad_alloc();
        }
        const char* description = XML_ErrorString(error);
        throw XLSX::Failure(std::string("Part of the workbook couldn’t be read (") +
                            (description != nullptr ? description : "bad XML") + ").");
    }

    static void onStart(void* self, const char* name, const char** attributes) {
        static_cast<Walk*>(self)->guarded([&](Walk& walk) { walk.start(withoutPrefix(name), Attributes(attributes)); });
    }

    static void onEnd(void* self, const char* name) {
        static_cast<Walk*>(self)->guarded([&](Walk& walk) { walk.end(withoutPrefix(name)); });
    }

    static void onText(void* self, const char* text, int length) {
        static_cast<Walk*>(self)->guarded([&](Walk& walk) {
            if (walk.m_wantedDepth != 0) {
                walk.m_text.append(text, static_cast<std::size_t>(length));
            }
        });
    }

    // No exception may cross the parser's C frames. A stopped parser may still send an event or two.
    template <typename Action>
    void guarded(Action action) noexcept {
        if (m_stopped) {
            return;
        }
        try {
            action(*this);
        } catch (...) {
            m_failure = std::current_exception();
            stop();
        }
    }

    void stop() {
        m_stopped = true;
        XML_StopParser(m_parser.get(), XML_FALSE);
    }

    void start(std::string_view name, const Attributes& attributes) {
        if (++m_depth > deepestElement) {
            stop();
            return;
        }
        m_text.clear();
        if (m_handler.onStart(name, attributes) && m_wantedDepth == 0) {
            m_wantedDepth = m_depth;
        }
    }

    void end(std::string_view name) {
        m_handler.onEnd(name, m_text);
        m_text.clear();
        if (m_depth == m_wantedDepth) {
            m_wantedDepth = 0;
        }
        --m_depth;
    }

    std::unique_ptr<std::remove_pointer_t<XML_Parser>, decltype(&XML_ParserFree)> m_parser;
    Handler& m_handler;
    std::string m_text;
    int m_depth = 0;        // 1 inside the outermost element
    int m_wantedDepth = 0;  // of the outermost element whose text is wanted; 0: none
    bool m_stopped = false;
    std::exception_ptr m_failure;
};

}  // namespace

std::optional<std::string_view> Attributes::find(std::string_view name) const {
    for (const Attribute attribute : *this) {
        if (attribute.name() == name) {
            return attribute.value();
        }
    }
    return std::nullopt;
}

void parse(std::string_view part, Handler& handler, std::size_t piece) {
    Walk walk(handler);
    while (part.size() > piece) {
        walk.feed(part.substr(0, piece), false);
        part.remove_prefix(piece);
    }
    walk.feed(part, true);
}

}  // namespace corvale::XMLEvents
