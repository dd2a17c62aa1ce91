#pragma once

#include <QColor>
#include <QtGlobal>

class QPalette;

namespace thermique::gui {

// Colours are stored as the study keeps them: 0x00BBGGRR, or with the high bit set a system
// colour index (window, window text, button face, tool-tip...), shown from the palette.
QColor couleurQt(qint32 valeur, const QPalette &palette);
QColor couleurQt(qint32 valeur);

// The stored value of a screen colour (always a plain BGR value).
qint32 valeurCouleur(const QColor &couleur);

} // namespace thermique::gui
