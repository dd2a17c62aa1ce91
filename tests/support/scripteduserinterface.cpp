#include "scripteduserinterface.h"

int ScriptedUserInterface::message(const QString &texte, int style, const QString &titre)
{
    messages.append({texte, style, titre});
    if (!reponses.isEmpty())
        return reponses.dequeue();
    const int boutons = style & 7;
    return (boutons == 3 || boutons == 4) ? thermique::ReponseNon
        : (boutons == 0)                  ? thermique::ReponseOk
                                          : thermique::ReponseAnnuler;
}

QString ScriptedUserInterface::fichierOuvrir(const QString &titre, const QString &filtre,
                                             const QString &dossier)
{
    dialogues.append(QStringLiteral("ouvrir|") + titre + QLatin1Char('|') + filtre
                     + QLatin1Char('|') + dossier);
    return fichiers.isEmpty() ? QString() : fichiers.dequeue();
}

QString ScriptedUserInterface::fichierEnregistrer(const QString &titre, const QString &filtre,
                                                  const QString &dossier, const QString &nomPropose)
{
    dialogues.append(QStringLiteral("enregistrer|") + titre + QLatin1Char('|') + filtre
                     + QLatin1Char('|') + dossier + QLatin1Char('|') + nomPropose);
    return fichiers.isEmpty() ? QString() : fichiers.dequeue();
}

void ScriptedUserInterface::messageAttente(const QString &texte)
{
    attentes.append(texte);
    attenteVisible = true;
}

void ScriptedUserInterface::fermerMessageAttente()
{
    attenteVisible = false;
}

void ScriptedUserInterface::ouvrirDocument(const QString &chemin)
{
    documents.append(chemin);
}

bool ScriptedUserInterface::ouvrirFormulaire(const QString &nom)
{
    formulairesOuverts.append(nom);
    const auto f = formulaires.value(nom);
    return f ? f() : false;
}
