#pragma once

#include "formulaires.h"

#include "workbook/userinterface.h"

#include <QPointer>
#include <QWidget>

#include <memory>

namespace thermique::gui {

class FenetreMessageAttente;

// The user interface of the desktop program: message boxes, file dialogs, the wait strip
// and the documents, with Qt.
class InterfaceQt : public thermique::UserInterface
{
public:
    InterfaceQt();
    ~InterfaceQt() override;

    // The window the dialogs belong to; its title is the title of untitled messages.
    void definirFenetre(QWidget *fenetre) { m_fenetre = fenetre; }
    // The controller the forms work on, and the forms by name.
    void definirClasseur(Classeur *classeur) { m_classeur = classeur; }
    Formulaires &formulaires() { return m_formulaires; }

    int message(const QString &texte, int style, const QString &titre) override;
    QString fichierOuvrir(const QString &titre, const QString &filtre,
                          const QString &dossier) override;
    QString fichierEnregistrer(const QString &titre, const QString &filtre, const QString &dossier,
                               const QString &nomPropose) override;
    void messageAttente(const QString &texte) override;
    void fermerMessageAttente() override;
    void ouvrirDocument(const QString &chemin) override;
    std::optional<qint32> choisirCouleur(qint32 initiale) override;
    bool ouvrirFormulaire(const QString &nom) override;
    void traiterEvenements() override;

    FenetreMessageAttente *fenetreAttente();

private:
    QPointer<QWidget> m_fenetre;
    Classeur *m_classeur = nullptr;
    Formulaires m_formulaires;
    std::unique_ptr<FenetreMessageAttente> m_attente;
};

// A file filter written "Label|*.a;*.b|Label 2|*.c" as the file dialogs read it:
// "Label (*.a *.b);;Label 2 (*.c)".
QString filtreQt(const QString &filtre);

} // namespace thermique::gui
