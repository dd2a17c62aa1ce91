#pragma once

#include <QString>
#include <QStringList>

#include <optional>

class QTextStream;

namespace thermique {

// Message box styles, by the values that the program uses.
enum StyleMessage : int {
    MessageOk = 0,
    MessageOuiNon = 4,
    MessageArret = 16,
    MessageQuestionOuiNon = 36,
    MessageExclamation = 48,
    MessageExclamationAnnulerReessayerContinuer = 54,
    MessageInformation = 64,
};

// Buttons a message box returns.
enum ReponseMessage : int {
    ReponseOk = 1,
    ReponseAnnuler = 2,
    ReponseAbandonner = 3,
    ReponseReessayer = 4,
    ReponseIgnorer = 5,
    ReponseOui = 6,
    ReponseNon = 7,
};

// Everything that needs a person goes through this boundary: the gui implements it with
// dialogs, the batch tool prints to stderr, tests script the answers.
class UserInterface
{
public:
    virtual ~UserInterface() = default;

    // A message box; the style gives the icon and the buttons. Returns the button pressed.
    virtual int message(const QString &texte, int style, const QString &titre) = 0;
    // Shorthand for a Yes/No box.
    bool question(const QString &texte, const QString &titre, int style = MessageOuiNon)
    {
        return message(texte, style, titre) == ReponseOui;
    }

    // File dialogs: an empty result means the user cancelled.
    virtual QString fichierOuvrir(const QString &titre, const QString &filtre,
                                  const QString &dossier)
        = 0;
    virtual QString fichierEnregistrer(const QString &titre, const QString &filtre,
                                       const QString &dossier, const QString &nomPropose)
        = 0;

    // The wait strip shown during long work, and its closing.
    virtual void messageAttente(const QString &texte) = 0;
    virtual void fermerMessageAttente() = 0;

    // A document (PDF help) or an outside program.
    virtual void ouvrirDocument(const QString &chemin) = 0;

    // The colour dialog on a stored colour value; nothing when cancelled.
    virtual std::optional<qint32> choisirCouleur(qint32 initiale)
    {
        Q_UNUSED(initiale);
        return std::nullopt;
    }

    // A form of the application, by its name ("Frm_Identité"...). The gui shows the dialog,
    // which works on the study through core functions. Returns false when the form does
    // not exist here or the user cancelled it.
    virtual bool ouvrirFormulaire(const QString &nom)
    {
        Q_UNUSED(nom);
        return false;
    }

    // Lets the screen breathe during long work; nothing by default.
    virtual void traiterEvenements() { }
};

// The batch boundary of the command-line tool: messages go to stderr as
// "[style] title: text", questions are answered No, dialogs are cancelled.
class BatchUserInterface : public UserInterface
{
public:
    // Messages go to `sortie`, or to stderr when none is given.
    explicit BatchUserInterface(QTextStream *sortie = nullptr)
        : m_sortie(sortie)
    { }
    int message(const QString &texte, int style, const QString &titre) override;
    QString fichierOuvrir(const QString &, const QString &, const QString &) override { return {}; }
    QString fichierEnregistrer(const QString &, const QString &, const QString &,
                               const QString &) override
    {
        return {};
    }
    void messageAttente(const QString &) override { }
    void fermerMessageAttente() override { }
    void ouvrirDocument(const QString &) override { }

    int messagesAffiches() const { return m_messages; }

private:
    QTextStream *m_sortie;
    int m_messages = 0;
};

} // namespace thermique
