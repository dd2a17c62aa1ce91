#include "touches.h"

#include "workbook/etatvue.h"

#include <QKeyEvent>

namespace thermique::gui {

namespace {

struct CorrespondanceTouche
{
    int qt;
    int code;
};

// Keys whose code is not their character's.
constexpr CorrespondanceTouche touchesSpeciales[] = {
    {Qt::Key_Backspace, Touche::Retour},
    {Qt::Key_Tab, Touche::Tabulation},
    {Qt::Key_Backtab, Touche::Tabulation},
    {Qt::Key_Return, Touche::Entree},
    {Qt::Key_Enter, Touche::Entree},
    {Qt::Key_Shift, 16},
    {Qt::Key_Control, 17},
    {Qt::Key_Alt, 18},
    {Qt::Key_Pause, 19},
    {Qt::Key_CapsLock, 20},
    {Qt::Key_Escape, Touche::Echap},
    {Qt::Key_Space, Touche::Espace},
    {Qt::Key_PageUp, 33},
    {Qt::Key_PageDown, 34},
    {Qt::Key_End, 35},
    {Qt::Key_Home, 36},
    {Qt::Key_Left, Touche::Gauche},
    {Qt::Key_Up, Touche::Haut},
    {Qt::Key_Right, Touche::Droite},
    {Qt::Key_Down, Touche::Bas},
    {Qt::Key_Insert, 45},
    {Qt::Key_Delete, Touche::Suppr},
    {Qt::Key_Semicolon, 186},
    {Qt::Key_Equal, 187},
    {Qt::Key_Plus, 187},
    {Qt::Key_Comma, 188},
    {Qt::Key_Minus, 189},
    {Qt::Key_Period, 190},
    {Qt::Key_Slash, 191},
};

// The numeric keypad has codes of its own.
constexpr CorrespondanceTouche touchesPaveNumerique[] = {
    {Qt::Key_Asterisk, 106}, {Qt::Key_Plus, 107},  {Qt::Key_Minus, 109},
    {Qt::Key_Period, 110},   {Qt::Key_Comma, 110}, {Qt::Key_Slash, 111},
};

} // namespace

int codeTouche(const QKeyEvent &evenement)
{
    const int cle = evenement.key();
    const bool pave = evenement.modifiers() & Qt::KeypadModifier;
    if (pave) {
        if (cle >= Qt::Key_0 && cle <= Qt::Key_9)
            return 96 + (cle - Qt::Key_0);
        for (const auto &t : touchesPaveNumerique)
            if (t.qt == cle)
                return t.code;
    }
    if ((cle >= Qt::Key_A && cle <= Qt::Key_Z) || (cle >= Qt::Key_0 && cle <= Qt::Key_9))
        return cle; // the same values: the capital letter, the digit
    if (cle >= Qt::Key_F1 && cle <= Qt::Key_F24)
        return Touche::F2 - 1 + (cle - Qt::Key_F1);
    for (const auto &t : touchesSpeciales)
        if (t.qt == cle)
            return t.code;
    return 0;
}

int masqueTouches(const QKeyEvent &evenement)
{
    const Qt::KeyboardModifiers m = evenement.modifiers();
    return ((m & Qt::ShiftModifier) ? Touche::MasqueMaj : 0)
        | ((m & Qt::ControlModifier) ? Touche::MasqueCtrl : 0)
        | ((m & Qt::AltModifier) ? Touche::MasqueAlt : 0);
}

int codeCaractere(const QKeyEvent &evenement)
{
    const Qt::KeyboardModifiers m = evenement.modifiers();
    if (m & Qt::ControlModifier) {
        // Only the table copy and paste are read as control characters.
        if (evenement.key() == Qt::Key_C)
            return 3;
        if (evenement.key() == Qt::Key_V)
            return 22;
        return 0;
    }
    const QString texte = evenement.text();
    if (texte.isEmpty())
        return 0;
    const char16_t c = texte.at(0).unicode();
    return c >= 32 && c != 127 ? int(c) : 0;
}

} // namespace thermique::gui
