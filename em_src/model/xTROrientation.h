#ifndef TOLVAD_MODEL_XTRORIENTATION_H
#define TOLVAD_MODEL_XTRORIENTATION_H

// Transmitter/receiver orientation codes. A code is an integer: 100 is the
// undefined orientation "????", 101 to 109 are "TxRx" to "TzRz" (transmitter
// component major, receiver minor). Components are 1 x, 2 y, 3 z and 4 for
// the undefined orientation.

#include <cstdint>
#include <string>
#include <vector>

enum : int {
    kFirstOrientationCode = 100,   // the undefined orientation
    kLastOrientationCode = 109,
    kOrientationCodeCount = 10
};

// The ten orientation names, index = code - 100. Filled once, on first use.
const std::vector<std::string>& OrientationNames();
// The component names "undefined", "x", "y", "z", "t", index = component.
const std::vector<std::string>& ComponentNames();

// The name of a code; an empty text for a code outside 100 to 109.
std::string CodeName(int code);
// The code of an exactly equal name; 100 for "????" and for an unknown name.
int NameToCode(const std::string& name);
// The first orientation name, in code order, that occurs anywhere in line;
// empty when none does. "????" stands first and wins over any other.
std::string FindCodeName(const std::string& line);
// Components of a code. A code outside 100 to 109 counts as 2 on both sides.
int TxComponent(int code);
int RxComponent(int code);
// The code of a transmitter and a receiver component in 1 to 3; 100 otherwise.
int CodeFromComponents(int tx, int rx);
// Drawing colour of an orientation; 0xBFFFFFF for 100 and any unknown code.
uint32_t OrientationColour(int code);
// The name of a component 0 to 4; an empty text for any other.
std::string ComponentName(int component);
// The component of a name; 0 when the name is no component name.
int ComponentIndex(const std::string& name);

#endif
