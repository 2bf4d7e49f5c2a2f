#pragma once

#include <climits>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

// Walks through an XML part of a workbook, event by event. All texts are UTF-8, whatever the part's encoding.
namespace corvale::XMLEvents {

// Views that are valid as long as the event.
class Attribute {
public:
    Attribute(std::string_view name, std::string_view value) : m_name(name), m_value(value) {}

    // With its namespace prefix.
    std::string_view name() const { return m_name; }
    std::string_view value() const { return m_value; }
    // Whether the name is that one letter, for the elements of which there are millions.
    bool is(char letter) const { return m_name.size() == 1 && m_name[0] == letter; }

private:
    std::string_view m_name;
    std::string_view m_value;
};

// The attributes of one element in the order of the part. Valid during its start event.
class Attributes {
public:
    Attributes(const Attribute* first, std::size_t count) : m_begin(first), m_end(first + count) {}

    const Attribute* begin() const { return m_begin; }
    const Attribute* end() const { return m_end; }

    // By the name with its prefix.
    std::optional<std::string_view> find(std::string_view name) const;

private:
    const Attribute* m_begin;
    const Attribute* m_end;
};

// What a kind of part does with its elements. Their names come without a namespace prefix. What a handler throws ends
// the walk and reaches the caller of parse.
class Handler {
public:
    Handler() = default;
    Handler(const Handler&) = delete;
    Handler& operator=(const Handler&) = delete;
    virtual ~Handler() = default;

    // Returns whether the character data inside the element is wanted.
    virtual bool onStart(std::string_view name, const Attributes& attributes) = 0;
    // `text` is the wanted character data since the last tag, of whatever element; the handler may take it away.
    virtual void onEnd(std::string_view name, std::string& text) = 0;
};

// External entities are never read, and neither nested elements nor entities can make memory explode. Throws
// XLSX::Failure when the part is no well-formed XML, and std::bad_alloc.
void parse(std::string_view part, Handler& handler);

// The same events, and the same failure, several times as slowly: without the short cut that parse takes through the
// XML that spreadsheet programs write. The parser gets the part in pieces of at most `piece` bytes.
void parseGenerally(std::string_view part, Handler& handler, std::size_t piece = INT_MAX);

// One of the two, for what is to be read both ways.
using Parser = void (*)(std::string_view part, Handler& handler);

}  // namespace corvale::XMLEvents
