#include "rendementechangeur.h"

#include "workbook/classeur.h"
#include "workbook/grid.h"
#include "workbook/nombres.h"

#include <QRegularExpression>

namespace thermique {

namespace {

const QString prefixe = QStringLiteral("R(%) = ");

} // namespace

QString RendementEchangeurInitial(const QString &texte)
{
    const qsizetype i = texte.indexOf(prefixe);
    if (i < 0)
        return QStringLiteral("75");
    QString chiffres;
    for (qsizetype k = i + prefixe.size(); k < texte.size(); ++k) {
        const QChar c = texte.at(k);
        if (!c.isDigit() && c != u'.')
            break;
        chiffres += c;
    }
    return chiffres.isEmpty() ? QStringLiteral("75") : chiffres;
}

bool AppliquerRendementEchangeur(Grid &pertes, int ligne, const QString &saisie)
{
    if (!pertes.contient(ligne, 15))
        return false;
    const QString valeur = saisie.trimmed();
    static const QRegularExpression nombre(QStringLiteral("^[0-9]+(\\.[0-9]*)?$"));
    const bool valide = nombre.match(valeur).hasMatch() && Val(valeur) <= 100;
    const QString texte = valide ? prefixe + valeur : QStringLiteral("  ");
    pertes.setText(ligne, 14, texte);
    pertes.setText(ligne, 15, texte);
    return valide;
}

bool AppliquerRendementEchangeur(Classeur &classeur, const QString &saisie)
{
    const bool ecrit = AppliquerRendementEchangeur(classeur.etude().flexGrid[4],
                                                   classeur.etat().LigneCourante, saisie);
    classeur.marquerModifiee();
    classeur.vue().grillesModifiees = true;
    return ecrit;
}

} // namespace thermique
