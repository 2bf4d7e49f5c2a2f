#pragma once

// What assistive technology sees of the window's own controls where Qt cannot know it: labels are text, and a button
// with a menu says that it opens one.
namespace corvale::ControlAccessibility {

// Has Qt ask here for the interfaces of such controls. Further calls do nothing.
void install();

}  // namespace corvale::ControlAccessibility
