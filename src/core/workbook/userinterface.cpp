#include "userinterface.h"

#include <QTextStream>

#include <cstdio>

namespace thermique {

int BatchUserInterface::message(const QString &texte, int style, const QString &titre)
{
    ++m_messages;
    const QString ligne = QLatin1Char('[') + QString::number(style) + QStringLiteral("] ") + titre
        + QStringLiteral(": ") + texte + QLatin1Char('\n');
    if (m_sortie) {
        *m_sortie << ligne;
    } else {
        QTextStream err(stderr);
        err << ligne;
    }
    // A Yes/No question is answered No, anything else acknowledged.
    const int boutons = style & 7;
    if (boutons == 4 || boutons == 3)
        return ReponseNon;
    if (boutons == 1 || boutons == 5)
        return ReponseAnnuler;
    if (boutons == 2 || boutons == 6)
        return ReponseAnnuler;
    return ReponseOk;
}

} // namespace thermique
