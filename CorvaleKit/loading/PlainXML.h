#pragma once

#include <string_view>

#include "CorvaleKit/loading/XMLDelivery.h"

// Reads the XML that spreadsheet programs write, several times as fast as a parser of all XML.
namespace corvale::PlainXML {

// Delivers the events of a part in UTF-8 that keeps to elements, attributes, text, the five predefined entities and
// character references. Returns false at the first thing that is another or is not well-formed, sound as it may be: the
// events so far are then the first of those that a parser of all XML would deliver before it ends or fails.
bool deliver(std::string_view part, XMLEvents::Delivery& delivery);

}  // namespace corvale::PlainXML
