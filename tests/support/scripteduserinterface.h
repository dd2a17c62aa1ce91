#pragma once

#include "workbook/userinterface.h"

#include <QMap>
#include <QQueue>
#include <QStringList>

#include <QString>
#include <QVector>
#include <functional>

// A user played by a script: it records every message and answers questions and file
// dialogs from queues (No and Cancel when the queue is empty).
class ScriptedUserInterface : public thermique::UserInterface
{
public:
    struct Message
    {
        QString texte;
        int style = 0;
        QString titre;
    };

    int message(const QString &texte, int style, const QString &titre) override;
    QString fichierOuvrir(const QString &titre, const QString &filtre,
                          const QString &dossier) override;
    QString fichierEnregistrer(const QString &titre, const QString &filtre, const QString &dossier,
                               const QString &nomPropose) override;
    void messageAttente(const QString &texte) override;
    void fermerMessageAttente() override;
    void ouvrirDocument(const QString &chemin) override;

    bool ouvrirFormulaire(const QString &nom) override;

    // Script. A form is played by a function standing for the user at the dialog.
    QMap<QString, std::function<bool()>> formulaires;
    QQueue<int> reponses;
    QQueue<QString> fichiers;

    // Record.
    QVector<Message> messages;
    QStringList attentes;
    QStringList documents;
    QStringList dialogues;
    QStringList formulairesOuverts;
    bool attenteVisible = false;

    QString dernierMessage() const
    {
        return messages.isEmpty() ? QString() : messages.last().texte;
    }
};
