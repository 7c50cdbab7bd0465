// What a program that reads the screen aloud finds beyond the platform's own widgets: the rows of the lines,
// the windows with what they say, panels that can be pressed.
#pragma once

namespace kalvane {

// From now on; the window system has been started.
void install_accessibility();

}  // namespace kalvane
