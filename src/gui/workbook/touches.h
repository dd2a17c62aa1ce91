#pragma once

class QKeyEvent;

namespace thermique::gui {

// The controller speaks the classic desktop key codes (letters by their capital, F2 = 113,
// arrows 37 to 40...). These turn a Qt key event into them.

// Key-down code of the key, 0 when it has none.
int codeTouche(const QKeyEvent &evenement);
// Shift mask: 1 shift, 2 control, 4 alt.
int masqueTouches(const QKeyEvent &evenement);
// Character code of a key press, 0 when the key types nothing the grid takes: printable
// text, and the control codes of Ctrl+C and Ctrl+V (3 and 22).
int codeCaractere(const QKeyEvent &evenement);

} // namespace thermique::gui
