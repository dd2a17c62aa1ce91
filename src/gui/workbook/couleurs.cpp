#include "couleurs.h"

#include <QApplication>
#include <QPalette>

namespace thermique::gui {

namespace {

struct CouleurSysteme
{
    int index;
    QPalette::ColorGroup groupe;
    QPalette::ColorRole role;
};

// The system colour indexes the study files use, and the palette role nearest to each.
constexpr CouleurSysteme couleursSysteme[] = {
    {0x00, QPalette::Active, QPalette::Mid}, // scroll bar
    {0x01, QPalette::Active, QPalette::Dark}, // desktop
    {0x02, QPalette::Active, QPalette::Highlight}, // active caption
    {0x03, QPalette::Inactive, QPalette::Highlight}, // inactive caption
    {0x04, QPalette::Active, QPalette::Window}, // menu bar
    {0x05, QPalette::Active, QPalette::Base}, // window background
    {0x06, QPalette::Active, QPalette::Shadow}, // window frame
    {0x07, QPalette::Active, QPalette::WindowText}, // menu text
    {0x08, QPalette::Active, QPalette::Text}, // window text
    {0x09, QPalette::Active, QPalette::HighlightedText}, // caption text
    {0x0A, QPalette::Active, QPalette::Mid}, // active border
    {0x0B, QPalette::Inactive, QPalette::Mid}, // inactive border
    {0x0C, QPalette::Active, QPalette::Dark}, // application workspace
    {0x0D, QPalette::Active, QPalette::Highlight}, // highlight
    {0x0E, QPalette::Active, QPalette::HighlightedText}, // highlight text
    {0x0F, QPalette::Active, QPalette::Button}, // button face
    {0x10, QPalette::Active, QPalette::Dark}, // button shadow
    {0x11, QPalette::Disabled, QPalette::Text}, // grey text
    {0x12, QPalette::Active, QPalette::ButtonText}, // button text
    {0x13, QPalette::Inactive, QPalette::WindowText}, // inactive caption text
    {0x14, QPalette::Active, QPalette::Light}, // button highlight
    {0x15, QPalette::Active, QPalette::Shadow}, // 3D dark shadow
    {0x16, QPalette::Active, QPalette::Midlight}, // 3D light
    {0x17, QPalette::Active, QPalette::ToolTipText}, // tool-tip text
    {0x18, QPalette::Active, QPalette::ToolTipBase}, // tool-tip background
};

} // namespace

QColor couleurQt(qint32 valeur, const QPalette &palette)
{
    const quint32 v = quint32(valeur);
    if (v & 0x80000000u) {
        const int index = int(v & 0xFFu);
        for (const auto &s : couleursSysteme)
            if (s.index == index)
                return palette.color(s.groupe, s.role);
        return palette.color(QPalette::Active, QPalette::Base);
    }
    return QColor(int(v & 0xFFu), int((v >> 8) & 0xFFu), int((v >> 16) & 0xFFu));
}

QColor couleurQt(qint32 valeur)
{
    return couleurQt(valeur, QApplication::palette());
}

qint32 valeurCouleur(const QColor &couleur)
{
    const QColor rgb = couleur.toRgb();
    return qint32(quint32(rgb.red()) | (quint32(rgb.green()) << 8) | (quint32(rgb.blue()) << 16));
}

} // namespace thermique::gui
