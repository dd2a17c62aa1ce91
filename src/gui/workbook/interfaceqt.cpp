#include "interfaceqt.h"

#include "couleurs.h"
#include "fenetremessageattente.h"

#include <QAbstractButton>
#include <QColorDialog>
#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QHash>
#include <QMessageBox>
#include <QPushButton>
#include <QUrl>

namespace thermique::gui {

namespace {

// Answers of the third button set that have no name in the core's list.
constexpr int ReponseRecommencer = 10;
constexpr int ReponseContinuer = 11;

struct BoutonMessage
{
    QMessageBox::StandardButton bouton;
    const char *libelle;
    int reponse;
};

constexpr BoutonMessage boutonsConnus[] = {
    {QMessageBox::Ok, "OK", ReponseOk},
    {QMessageBox::Cancel, "Annuler", ReponseAnnuler},
    {QMessageBox::Abort, "Abandonner", ReponseAbandonner},
    {QMessageBox::Retry, "Recommencer", ReponseReessayer},
    {QMessageBox::Ignore, "Ignorer", ReponseIgnorer},
    {QMessageBox::Yes, "Oui", ReponseOui},
    {QMessageBox::No, "Non", ReponseNon},
};

// The buttons of each set (style & 7), in display order.
QList<QMessageBox::StandardButton> boutonsDuStyle(int jeu)
{
    switch (jeu) {
    case 1:
        return {QMessageBox::Ok, QMessageBox::Cancel};
    case 2:
        return {QMessageBox::Abort, QMessageBox::Retry, QMessageBox::Ignore};
    case 3:
        return {QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel};
    case 4:
        return {QMessageBox::Yes, QMessageBox::No};
    case 5:
        return {QMessageBox::Retry, QMessageBox::Cancel};
    default:
        return {QMessageBox::Ok};
    }
}

QMessageBox::Icon icone(int style)
{
    switch (style & 0x70) {
    case 16:
        return QMessageBox::Critical;
    case 32:
        return QMessageBox::Question;
    case 48:
        return QMessageBox::Warning;
    case 64:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

} // namespace

QString filtreQt(const QString &filtre)
{
    const QStringList morceaux = filtre.split(QLatin1Char('|'));
    QStringList filtres;
    for (int i = 0; i + 1 < morceaux.size(); i += 2) {
        const QString libelle = morceaux.at(i).trimmed();
        QStringList motifs = morceaux.at(i + 1).split(QLatin1Char(';'), Qt::SkipEmptyParts);
        for (QString &m : motifs)
            m = m.trimmed();
        const QString liste = motifs.join(QLatin1Char(' '));
        // A label that already shows its patterns keeps its form.
        if (libelle.endsWith(QLatin1Char(')')) && libelle.contains(QLatin1Char('*')))
            filtres << libelle;
        else
            filtres << libelle + QStringLiteral(" (") + liste + QLatin1Char(')');
    }
    if (filtres.isEmpty() && !filtre.trimmed().isEmpty())
        filtres << filtre.trimmed();
    return filtres.join(QStringLiteral(";;"));
}

InterfaceQt::InterfaceQt() = default;
InterfaceQt::~InterfaceQt() = default;

int InterfaceQt::message(const QString &texte, int style, const QString &titre)
{
    QMessageBox boite(m_fenetre);
    boite.setIcon(icone(style));
    boite.setText(texte);
    QString titreBoite = titre;
    if (titreBoite.isEmpty())
        titreBoite = m_fenetre ? m_fenetre->windowTitle() : QCoreApplication::applicationName();
    boite.setWindowTitle(titreBoite);

    const int jeu = style & 7;
    QList<QAbstractButton *> ordre;
    QHash<QAbstractButton *, int> reponses;
    if (jeu == 6) {
        // Cancel / Try again / Continue has no standard Qt set.
        const struct
        {
            const char *libelle;
            QMessageBox::ButtonRole role;
            int reponse;
        } boutons[] = {{"Annuler", QMessageBox::RejectRole, ReponseAnnuler},
                       {"Recommencer", QMessageBox::AcceptRole, ReponseRecommencer},
                       {"Continuer", QMessageBox::AcceptRole, ReponseContinuer}};
        for (const auto &b : boutons) {
            QPushButton *bouton = boite.addButton(QString::fromUtf8(b.libelle), b.role);
            ordre << bouton;
            reponses.insert(bouton, b.reponse);
        }
        boite.setEscapeButton(ordre.first());
    } else {
        for (QMessageBox::StandardButton standard : boutonsDuStyle(jeu)) {
            QAbstractButton *bouton = boite.addButton(standard);
            for (const auto &connu : boutonsConnus)
                if (connu.bouton == standard) {
                    bouton->setText(QString::fromUtf8(connu.libelle));
                    reponses.insert(bouton, connu.reponse);
                }
            ordre << bouton;
        }
    }
    // 256 and 512 make the second or third button the default one.
    const int defaut = (style >> 8) & 3;
    if (defaut < ordre.size())
        boite.setDefaultButton(qobject_cast<QPushButton *>(ordre.at(defaut)));

    boite.exec();
    QAbstractButton *clique = boite.clickedButton();
    if (clique && reponses.contains(clique))
        return reponses.value(clique);
    // Closed without a button: the cancelling answer of the set.
    switch (jeu) {
    case 0:
        return ReponseOk;
    case 2:
        return ReponseAbandonner;
    case 4:
        return ReponseNon;
    default:
        return ReponseAnnuler;
    }
}

QString InterfaceQt::fichierOuvrir(const QString &titre, const QString &filtre,
                                   const QString &dossier)
{
    return QFileDialog::getOpenFileName(m_fenetre, titre, dossier, filtreQt(filtre));
}

QString InterfaceQt::fichierEnregistrer(const QString &titre, const QString &filtre,
                                        const QString &dossier, const QString &nomPropose)
{
    const QString depart = nomPropose.isEmpty() ? dossier : QDir(dossier).filePath(nomPropose);
    return QFileDialog::getSaveFileName(m_fenetre, titre, depart, filtreQt(filtre));
}

FenetreMessageAttente *InterfaceQt::fenetreAttente()
{
    if (!m_attente)
        m_attente = std::make_unique<FenetreMessageAttente>(); // its own window, not owned by the
                                                               // main one
    return m_attente.get();
}

void InterfaceQt::messageAttente(const QString &texte)
{
    fenetreAttente()->afficher(texte);
    traiterEvenements(); // paint it before the work starts
}

void InterfaceQt::fermerMessageAttente()
{
    if (m_attente)
        m_attente->fermer();
}

void InterfaceQt::ouvrirDocument(const QString &chemin)
{
    QDesktopServices::openUrl(QUrl::fromLocalFile(chemin));
}

std::optional<qint32> InterfaceQt::choisirCouleur(qint32 initiale)
{
    const QColor choix = QColorDialog::getColor(couleurQt(initiale), m_fenetre);
    if (!choix.isValid())
        return std::nullopt;
    return valeurCouleur(choix);
}

bool InterfaceQt::ouvrirFormulaire(const QString &nom)
{
    const FabriqueFormulaire fabrique = m_formulaires.value(nom);
    if (!fabrique || !m_classeur)
        return false;
    return fabrique(*m_classeur, m_fenetre);
}

void InterfaceQt::traiterEvenements()
{
    // Painting and timers only: a click during the work must not start another handler
    // in the middle of this one.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

} // namespace thermique::gui
