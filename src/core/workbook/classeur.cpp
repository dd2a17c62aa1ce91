#include "classeur.h"

#include "feuille.h"
#include "menus.h"
#include "nombres.h"
#include "records.h"
#include "userinterface.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>

namespace thermique {

namespace {

const QString titreApplication = QStringLiteral(" Thermique : Bilan énergétique. ");
const QString aideClic
    = QStringLiteral("Clic dans les cellules blanches pour entrer les données correspondantes.");
const QString aideFeuille0 = QStringLiteral(
    "Déplacez le pointeur sur les cellules pour obtenir des informations pour la saisie.");

// Toolbar captions, by button.
const char *const libellesBoutons[10] = {
    "Insérer une ligne (Ctrl + i ou F2)",
    "Supprimer une ligne (Ctrl + s ou F3)",
    "Enregistrer",
    "Imprimer",
    "Aide",
    "Insertion d'un tableau vide (Ctrl + t)",
    "Copie d'un tableau (Ctrl + c)",
    "Collage d'un tableau (Ctrl + v)",
    "Vidéo",
    "Développeur",
};

QByteArray lireFichier(const QString &chemin)
{
    return LireFichier(chemin);
}

void ecrireFichier(const QString &chemin, const RecordWriter &w)
{
    EcrireFichier(chemin, w.bytes());
}

} // namespace

Classeur::Classeur(Study &etude, UserInterface &ui, DossierApplication dossier)
    : m_etude(etude)
    , m_ui(ui)
    , m_dossier(std::move(dossier))
{
    for (auto &f : m_feuilles)
        f = std::make_unique<Feuille>();
    for (const EntreeMenu &e : TableMenus()) {
        if (!*e.nom)
            continue;
        const QString nom = QString::fromUtf8(e.nom);
        m_vue.menus[nom].libelle = QString::fromUtf8(e.libelle);
        m_menusActifs[nom] = true;
    }
    m_vue.titre = titreApplication;
    m_copieTableau = Grid(1, 0);
}

Classeur::~Classeur() = default;

void Classeur::installerFeuille(int numero, std::unique_ptr<Feuille> feuille)
{
    if (numero >= 0 && numero < int(m_feuilles.size()) && feuille)
        m_feuilles[numero] = std::move(feuille);
}

Feuille &Classeur::feuille(int numero)
{
    return *m_feuilles[std::clamp(numero, 0, int(m_feuilles.size()) - 1)];
}

Grid &Classeur::grilleActive()
{
    const int f = m_etat.FeuilleActive;
    if (f == 6)
        return m_etude.flexGrid2[std::clamp(m_etat.SousFeuilleBesoins, 0, 3)];
    if (f == 7)
        return m_etude.flexGrid3[std::clamp(m_etat.FeuilleConsommation, 0, 13)];
    return m_etude.flexGrid[std::clamp(f, 0, 5)];
}

void Classeur::definirEcran(int largeurTwips, int hauteurTwips)
{
    if (largeurTwips > 0)
        m_largeurEcran = largeurTwips;
    if (hauteurTwips > 0)
        m_hauteurEcran = hauteurTwips;
}

QString Classeur::codeLigne(int ligne) const
{
    return m_etude.flexGrid[4].text(ligne, 0);
}

bool Classeur::estBlanc(int ligne, int colonne) const
{
    return m_etude.flexGrid[0].text(ligne, colonne).trimmed().isEmpty();
}

// ---- Menus ----------------------------------------------------------------------------

void Classeur::definirActionMenu(const QString &nom, std::function<void()> action)
{
    m_actionsMenu[nom] = std::move(action);
    majMenus();
}

bool Classeur::menuActif(const QString &nom) const
{
    return m_menusActifs.value(nom, false);
}

void Classeur::activerMenu(const QString &nom, bool actif)
{
    m_menusActifs[nom] = actif;
    majMenus();
}

std::function<void()> Classeur::actionMenu(const QString &nom) const
{
    if (nom == QLatin1String("MnuQuitter") || nom == QLatin1String("Mnu_CentrageFeuilles")
        || nom == QStringLiteral("Mnu_CouleurDéfaut") || nom == QLatin1String("Mnu_Couleurs")
        || nom == QLatin1String("Mnu_FichiersAnciens") || nom == QLatin1String("Mnu_Aide")
        || nom == QLatin1String("Mnu_kW"))
        return [] {
        };
    if (nom == QLatin1String("MnuOuvrir"))
        return extensions.ouvrirFichier;
    if (nom == QLatin1String("Ouvrir"))
        return extensions.ouvrirAncienFichier;
    if (nom == QLatin1String("MnuEnregistrer"))
        return extensions.enregistrer;
    if (nom == QLatin1String("MnuEnregistrerSous"))
        return extensions.enregistrerSous;
    if (nom == QLatin1String("MnuImprimer"))
        return extensions.imprimer;
    if (nom == QStringLiteral("Mnu_RécupFichier"))
        return extensions.recuperation;
    return m_actionsMenu.value(nom);
}

void Classeur::majMenus()
{
    for (auto it = m_vue.menus.begin(); it != m_vue.menus.end(); ++it) {
        const QString &nom = it.key();
        bool aEnfants = false;
        for (const EntreeMenu &e : TableMenus())
            if (QString::fromUtf8(e.parent) == nom) {
                aEnfants = true;
                break;
            }
        // A menu that only opens a sub-menu is enabled by its own rule alone.
        it->actif = m_menusActifs.value(nom, false) && (aEnfants || bool(actionMenu(nom)));
    }
}

void Classeur::majMenusFichiersAnciens()
{
    const bool coche = m_vue.menus[QStringLiteral("Mnu_FichiersAnciens")].coche;
    m_vue.menus[QStringLiteral("MnuOuvrir")].libelle
        = coche ? QStringLiteral("&Ouvrir (nouveau fichier)") : QStringLiteral("&Ouvrir");
    m_vue.menus[QStringLiteral("Ouvrir")].libelle = QStringLiteral("Ouvrir (ancien fichier)");
    m_vue.menus[QStringLiteral("Ouvrir")].visible = coche;
}

void Classeur::Menu(const QString &nom)
{
    if (!m_vue.menus.contains(nom) || !m_vue.menus.value(nom).actif)
        return;
    FermerListes();
    if (nom == QLatin1String("MnuQuitter")) {
        // The window closes itself after Fermeture when it gets the quit request.
        m_vue.fermetureDemandee = true;
        return;
    }
    if (nom == QLatin1String("Mnu_CentrageFeuilles")) {
        EtatMenu &m = m_vue.menus[nom];
        m.coche = !m.coche;
        m_etude.centrageFeuilles = m.coche ? 1 : 0;
        AjusterFenetre();
        return;
    }
    if (nom == QLatin1String("Mnu_FichiersAnciens")) {
        m_vue.menus[nom].coche = !m_vue.menus[nom].coche;
        majMenusFichiersAnciens();
        return;
    }
    if (nom == QStringLiteral("Mnu_CouleurDéfaut")) {
        CouleurParDefaut();
        return;
    }
    if (nom == QLatin1String("Mnu_Couleurs")) {
        if (const auto c = m_ui.choisirCouleur(m_etat.CouleurVerrouillee))
            ChangerCouleurVerrouillee(*c);
        return;
    }
    if (nom == QLatin1String("Mnu_Aide")) {
        m_ui.ouvrirDocument(m_dossier.fichier(QStringLiteral("CF - Aide générale.pdf")));
        return;
    }
    if (nom == QLatin1String("Mnu_kW")) {
        m_ui.ouvrirDocument(m_dossier.fichier(QStringLiteral("Electricité.pdf")));
        return;
    }
    if (const auto action = actionMenu(nom))
        action();
}

// ---- Toolbar ----------------------------------------------------------------------------

void Classeur::majBoutons()
{
    const int f = m_etat.FeuilleActive;
    for (int i = 0; i < 10; ++i) {
        BoutonOutil &b = m_vue.boutons[i];
        b.libelle = QString::fromUtf8(libellesBoutons[i]);
        b.infobulle = b.libelle;
        b.actif = true;
    }
    const bool feuilleDeLignes = f == 1 || f == 2 || f == 4;
    m_vue.boutons[0].visible = feuilleDeLignes;
    m_vue.boutons[1].visible = feuilleDeLignes;
    m_vue.boutons[2].visible = true;
    m_vue.boutons[2].actif = bool(extensions.enregistrer);
    m_vue.boutons[3].visible = true;
    m_vue.boutons[3].actif = bool(extensions.imprimer) && f != 6;
    m_vue.boutons[4].visible = true;
    BoutonOutil &b5 = m_vue.boutons[5];
    b5.visible = f == 1 || f == 2 || f == 4 || f == 5;
    if (f == 1)
        b5.infobulle = QStringLiteral("Accès bibliothèque générale");
    else if (f == 2)
        b5.infobulle = QStringLiteral("Sélection rapide des ponts thermiques");
    else if (f == 5)
        b5.infobulle = QStringLiteral("Graphique de répartition des calorifuites.");
    if (f != 4)
        b5.libelle = b5.infobulle;
    // The library, the quick bridge choice and the chart belong to their sheets.
    b5.actif = f == 4 || m_actionsMenu.contains(QStringLiteral("Bouton5-%1").arg(f));
    m_vue.boutons[6].visible = f == 4;
    m_vue.boutons[7].visible = f == 4;
    m_vue.boutons[7].actif = m_copieTableau.rows() > 1;
    m_vue.boutons[8].visible = false;
    m_vue.boutons[9].visible = false;
}

void Classeur::SurvolBouton(int bouton)
{
    if (bouton >= 0 && bouton < 10 && m_vue.boutons[bouton].visible)
        m_vue.aide = m_vue.boutons[bouton].infobulle;
}

void Classeur::Bouton(int bouton)
{
    if (bouton < 0 || bouton >= 10 || !m_vue.boutons[bouton].visible
        || !m_vue.boutons[bouton].actif)
        return;
    const int f = m_etat.FeuilleActive;
    Grid &g = grilleActive();
    m_etat.LigneCourante = g.row;
    m_etat.ColonneCourante = g.col;
    switch (bouton) {
    case 0:
        InsererLigne();
        break;
    case 1:
        SupprimerLigne();
        break;
    case 2:
        if (extensions.enregistrer)
            extensions.enregistrer();
        break;
    case 3:
        if (extensions.imprimer)
            extensions.imprimer();
        break;
    case 4:
        m_ui.ouvrirDocument(m_dossier.fichier(QStringLiteral("CF - Aide générale.pdf")));
        break;
    case 5:
        if (f == 4) {
            const int ligne = g.row;
            m_etat.InsertionTableau = 5;
            InsererLigne();
            m_etat.InsertionTableau = 0;
            deplacer(ligne, 2);
            if (extensions.enregistrer)
                extensions.enregistrer();
        } else if (const auto action = m_actionsMenu.value(QStringLiteral("Bouton5-%1").arg(f))) {
            action();
        }
        break;
    case 6:
        CopierTableau();
        break;
    case 7:
        CollerTableau();
        break;
    default:
        break;
    }
    majBoutons();
}

// ---- Start and settings -------------------------------------------------------------------

void Classeur::lireReglages()
{
    // A missing or damaged file leaves the defaults: locked colour 0, no centring.
    RecordReader couleur(lireFichier(m_dossier.fichier(QStringLiteral("Couleur.txt"))));
    const double c = couleur.readNumber().value_or(0);
    m_etat.CouleurVerrouillee
        = (c >= INT32_MIN && c <= 4294967295.0) ? qint32(quint32(qint64(c))) : 0;
    RecordReader transfert(
        lireFichier(m_dossier.fichier(QStringLiteral("Fichiers Transfert.txt"))));
    m_etat.ModeTransfert = transfert.readBoolean().value_or(false);
}

void Classeur::ecrireReglages()
{
    RecordWriter positions;
    positions.boolean(m_vue.menus[QStringLiteral("Mnu_CentrageFeuilles")].coche)
        .integer(m_etude.centrageFeuilles)
        .endRecord();
    ecrireFichier(m_dossier.fichier(QStringLiteral("PositionsFeuilles.ini")), positions);
    RecordWriter transfert;
    transfert.booleanRecord(false);
    ecrireFichier(m_dossier.fichier(QStringLiteral("Fichiers Transfert.txt")), transfert);
    RecordWriter hspl;
    hspl.stringRecord(QString());
    ecrireFichier(m_dossier.fichier(QStringLiteral("Hspl.txt")), hspl);
}

void Classeur::ChargementInitial(const QString &cheminEtude)
{
    lireReglages();
    m_etat.CouleurSaisie = 16777215;
    m_ui.messageAttente(QStringLiteral("Chargement des données, veuillez patienter."));
    m_etat.SousFeuilleBesoins = 0;
    m_etat.FeuilleActive = 0;
    m_vue.ongletsBesoinsVisibles = false;
    PreparationClasseur();
    if (m_etat.ModeTransfert)
        m_ui.fermerMessageAttente();
    m_etat.TypeConstructionMemoire = m_etude.flexGrid[0].text(12, 13).left(8);
    if (!m_etude.flexGrid[0].text(9, 10).trimmed().isEmpty())
        activerMenu(QStringLiteral("Mnu_NiveauTarifGazNat"), true);
    if (!cheminEtude.isEmpty() && extensions.ouvrirFichierChemin)
        extensions.ouvrirFichierChemin(cheminEtude);
    m_ui.fermerMessageAttente();
    m_etat.SessionOuverte = false;
    m_etat.TransfertActif = false;
    m_etat.ContexteParoi = false;
    majMenus();
    majBoutons();
}

void Classeur::PreparationClasseur()
{
    m_etat.UniteSurface = QStringLiteral("m²");
    m_etat.UniteVolume = QStringLiteral("m³");
    m_menusActifs[QStringLiteral("Mnu_Rotation")] = false;
    m_menusActifs[QStringLiteral("Mnu_ApportsInternes")] = false;
    m_menusActifs[QStringLiteral("Mnu_NiveauTarifGazNat")] = false;
    m_menusActifs[QStringLiteral("Mnu_TransfertDonnées")] = true;

    m_etude.centrageFeuilles = 0;
    m_etat.SaisieControlee = false;
    m_etat.IgnorerCombo = 1;
    m_copieTableau = Grid(1, 0);

    m_vue.titre = titreApplication;
    m_vue.aide = aideClic;
    FermerListes();
    m_vue.saisie.visible = false;

    m_etude.initialiserGrillesConsommations();
    m_etat.ListesOuvertes.fill(QStringLiteral("Non"));
    m_etat.CouleurSaisie = CouleurSystemeFenetre;

    const bool nouvelle = !m_etat.ModeTransfert && estBlanc(9, 10);
    if (nouvelle) {
        for (int i = 0; i < Study::NombreFeuilles; ++i) {
            Grid &g = m_etude.flexGrid[i];
            g.setRows(i == 3 ? 26 : 60);
            g.modeAffichage = 2;
            g.row = 1;
            g.col = 1;
        }
        // The sheets are built once, in the order a study is made.
        for (int i : {0, 1, 2, 3, 5})
            feuille(i).construire(*this);
        m_etat.FichiersMeteo.clear();
        RecordReader meteo(lireFichier(m_dossier.fichier(QStringLiteral("Fichiers Météo.txt"))));
        const QString dossierMeteo = meteo.readString().value_or(QString()).trimmed();
        if (!dossierMeteo.isEmpty()) {
            const QDir d(m_dossier.fichier(QStringLiteral("Météo/") + dossierMeteo));
            for (const QString &f : d.entryList({QStringLiteral("*.met")}, QDir::Files, QDir::Name))
                m_etat.FichiersMeteo << f.left(f.size() - 4);
        }
        m_etat.FeuilleActive = 0;
        m_etat.ImpressionGrille = QStringLiteral("Oui");
        m_etat.ImpressionQualite = QStringLiteral("Bonne");
        m_etat.IgnorerCombo = 0;
        m_menusActifs[QStringLiteral("MnuEdition")] = true;
    }
    AjusterFenetre();

    RecordReader positions(lireFichier(m_dossier.fichier(QStringLiteral("PositionsFeuilles.ini"))));
    m_vue.menus[QStringLiteral("Mnu_CentrageFeuilles")].coche = positions.boolean(false);
    m_etude.centrageFeuilles = int(positions.readInteger(0, 1).value_or(0));

    m_vue.aide = aideClic;
    m_vue.couleurAide = m_etat.CouleurVerrouillee;
    m_vue.aideVisible = true;
    m_vue.etiquetteVersion = QStringLiteral("Version : 2026-07-10");
    m_etude.initialiserRoseDesVents();

    m_vue.menus[QStringLiteral("Mnu_FichiersAnciens")].coche = false;
    majMenusFichiersAnciens();
    m_vue.grilleVisible = 0;
    m_vue.grillesModifiees = true;
    majMenus();
    majBoutons();
}

void Classeur::AjusterFenetre()
{
    const int f = m_etat.FeuilleActive;
    int largeur = 0;
    if (f == 6) {
        for (int i = 0; i < Study::NombreFeuillesBesoins; ++i) {
            Grid &g = m_etude.flexGrid2[i];
            if (g.cols() == 0)
                continue;
            const int c0 = (i == 0 && g.cols() == 24)    ? 1900
                : ((i == 1 || i == 3) && g.cols() == 26) ? 3300
                                                         : g.colWidth(0);
            g.setColWidth(0, c0);
            const int part = std::max(0, (m_largeurEcran - c0 - 380) / 25);
            for (int c = 1; c < g.cols(); ++c)
                g.setColWidth(c, part);
        }
        largeur = m_largeurEcran - 380;
    } else if (f == 7) {
        Grid &recap = m_etude.flexGrid3[0];
        recap.setCols(10);
        recap.setColWidth(0, 10);
        recap.setColWidth(9, 10);
        for (int c = 1; c <= 8; ++c)
            recap.setColWidth(c, 1450);
        for (int i = 1; i <= 12; ++i) {
            Grid &g = m_etude.flexGrid3[i];
            g.setColWidth(0, 6000);
            g.setColWidth(1, 5000);
            g.setColWidth(2, 3000);
        }
        Grid &synthese = m_etude.flexGrid3[13];
        synthese.setCols(1);
        synthese.setColWidth(0, 17200);
        largeur = int((11620 + 360) * 1.07);
    } else {
        Grid &g = m_etude.flexGrid[std::clamp(f, 0, 5)];
        if (f == 2) {
            for (int c = 4; c <= 12; ++c)
                g.setColWidth(c, 0);
            g.setColWidth(1, 5000);
            g.setColWidth(13, 900);
        }
        const int debut = g.colWidth(0) > 0 ? 0 : 1;
        for (int c = debut; c <= std::min(20, g.cols() - 1); ++c)
            largeur += g.colWidth(c);
        largeur += f == 1 || f == 2 ? 310 : f == 4 ? 270 : f == 5 ? 340 : 0;
        const int maximum = m_largeurEcran - 200;
        if (largeur > maximum && (f == 1 || f == 5)) {
            // The widest column gives way so that the sheet fits the screen.
            const int colonne = f == 1 ? 6 : 2;
            const int retrait = largeur - maximum + (f == 1 ? 250 : 150);
            g.setColWidth(colonne, std::max(0, g.colWidth(colonne) - retrait));
            largeur -= retrait;
        }
    }
    m_vue.largeurGrille = largeur;
    m_vue.largeurFenetre = std::min(largeur + 200, m_largeurEcran);
    m_vue.hauteurFenetre = m_hauteurEcran - 100;
    m_vue.centrerFenetre = m_etude.centrageFeuilles == 1;
}

// ---- Sheet switching ---------------------------------------------------------------------

bool Classeur::portesAdministratives()
{
    struct Porte
    {
        int ligne;
        const char *message;
    };
    static constexpr Porte portes[] = {
        {9, "La ville n'est pas renseignée sur la feuille ADMINISTRATIVE."},
        {12, "L'usage du bâtiment n'est pas renseigné sur la feuille ADMINISTRATIVE."},
        {13, "La situation du bâtiment n'est pas renseigné sur la feuille ADMINISTRATIVE."},
    };
    for (const Porte &p : portes) {
        if (estBlanc(p.ligne, 13)) {
            m_ui.message(QString::fromUtf8(p.message), MessageArret, titreApplication);
            return false;
        }
    }
    return true;
}

bool Classeur::porteGeographique(const QString &premier)
{
    const QString titre = QStringLiteral("Thermique");
    QString message;
    if (m_etude.flexGrid[0].text(9, 13).trimmed().isEmpty())
        message = premier;
    else if (estBlanc(12, 13))
        message = QStringLiteral("Compléter la partie \" construction \" de la page "
                                 "Administrative avant d'atteindre cette page.");
    else if (estBlanc(13, 13))
        message = QStringLiteral("Compléter la partie \" site \" de la page Administrative "
                                 "avant d'atteindre cette page.");
    if (message.isEmpty())
        return true;
    m_ui.message(message, MessageExclamation, titre);
    return false;
}

void Classeur::ChangementFeuille(int onglet)
{
    const int nouvelle = onglet - 1;
    if (nouvelle < 0 || nouvelle > 7 || nouvelle == m_etat.FeuilleActive)
        return;
    if (m_vue.saisie.visible)
        ValiderSaisie();

    // 1. Leaving the administrative sheet needs the town, the use and the situation.
    if (m_etat.FeuilleActive == 0 && m_etat.IgnorerCombo == 0 && !portesAdministratives()) {
        m_etat.IgnorerCombo = 1;
        changerFeuille(0);
        return;
    }
    changerFeuille(nouvelle);
}

void Classeur::changerFeuille(int nouvelle)
{
    const int quittee = m_etat.FeuilleActive;
    m_etat.IgnorerCombo = 0;

    // 2. Everything laid over the sheet left goes away.
    m_menusActifs[QStringLiteral("Mnu_EclairageNaturel")] = false;
    m_etat.TransfertActif = false;
    m_vue.saisie.visible = false;
    m_vue.image.clear();
    FermerListes();

    // 3. The simplified heat-loss mode has no bridges nor ventilation.
    if (m_etat.ModeTransfert && (nouvelle == 2 || nouvelle == 3)) {
        m_ui.message(QStringLiteral("Onglet inaccessible dans la version simplifiée du calcul "
                                    "des pertes de chaleur."),
                     MessageExclamation, titreApplication);
        majMenus();
        return;
    }

    // 4 to 7.
    m_etat.FeuilleQuittee = m_etat.FeuilleMemoire;
    m_etat.FeuilleActive = nouvelle;
    m_etat.FeuilleMemoire = nouvelle;
    m_menusActifs[QStringLiteral("Mnu_TransfertDonnées")] = false;
    m_vue.boutonInformations = nouvelle == 1;
    if (nouvelle != 7)
        m_vue.grilleVisible = nouvelle;
    const bool feuillePertes = nouvelle == 4 && !m_etat.ModeTransfert;
    m_menusActifs[QStringLiteral("Mnu_Rotation")] = feuillePertes;
    m_menusActifs[QStringLiteral("Mnu_ApportsInternes")] = feuillePertes;

    // 8. Thermal needs: the sun sheet is computed on entry.
    if (nouvelle == 6) {
        m_vue.ongletsBesoinsVisibles = true;
        m_etat.SousFeuilleBesoins = 0;
        m_menusActifs[QStringLiteral("MnuImprimer")] = false;
        m_vue.boutonExcel = true;
        feuille(6).entrer(*this);
    } else {
        m_vue.ongletsBesoinsVisibles = false;
        m_menusActifs[QStringLiteral("MnuImprimer")] = true;
        m_vue.boutonExcel = false;
    }

    // 9. Consumption: the whole calculation runs on entry unless it is up to date.
    if (nouvelle == 7) {
        m_ui.messageAttente(QStringLiteral("Calculs en cours, veuillez patienter."));
        if (!m_etat.ConsommationsAJour)
            feuille(7).entrer(*this);
        AjusterFenetre();
        m_vue.ongletsConsommationsVisibles = true;
        m_vue.grilleVisible = 7;
        majBoutons();
        majMenus();
        m_ui.fermerMessageAttente();
        if (extensions.sauvegardeInter && quittee != nouvelle)
            extensions.sauvegardeInter(quittee);
        m_vue.grillesModifiees = true;
        return;
    }
    m_vue.ongletsConsommationsVisibles = false;

    // 10.
    if (nouvelle != 5)
        AjusterFenetre();

    // 11. Per sheet.
    m_vue.aideVisible = true;
    m_menusActifs[QStringLiteral("Mnu_Météo")] = nouvelle == 0;
    switch (nouvelle) {
    case 0: {
        Grid &g = m_etude.flexGrid[0];
        m_menusActifs[QStringLiteral("Mnu_TransfertDonnées")] = true;
        m_vue.aide = aideFeuille0;
        g.fixedRows = 0;
        g.fixedCols = 0;
        m_etat.ImpressionGrille = QStringLiteral("Oui");
        m_etat.ImpressionQualite = QStringLiteral("Bonne");
        m_etat.DerniereColonneSaisie = 22;
        m_menusActifs[QStringLiteral("MnuEdition")] = true;
        feuille(0).entrer(*this);
        break;
    }
    case 3:
        if (!porteGeographique(QStringLiteral("Compléter la partie géographique de la page "
                                              "Administrative avant d'atteindre cette page."))) {
            changerFeuille(0);
            return;
        }
        feuille(3).entrer(*this);
        m_etat.ChangementVentilation = QStringLiteral("Oui");
        break;
    case 1:
    case 2:
    case 4:
    case 5:
        m_menusActifs[QStringLiteral("Mnu_TransfertDonnées")] = nouvelle == 1 || nouvelle == 5;
        if (nouvelle == 4 && !m_etat.ModeTransfert
            && !porteGeographique(QStringLiteral("Compléter la partie géographique de la page "
                                                 "Administrative avant d'atteindre cette "
                                                 "page."))) {
            changerFeuille(0);
            return;
        }
        if (nouvelle == 4)
            m_etat.DerniereColonneSaisie = 18;
        else if (nouvelle != 5)
            m_etat.DerniereColonneSaisie = 12;
        m_etat.ImpressionGrille = QStringLiteral("Oui");
        m_etat.ImpressionQualite = QStringLiteral("Bonne");
        m_menusActifs[QStringLiteral("MnuEdition")] = true;
        if (nouvelle == 1 || nouvelle == 2)
            feuille(nouvelle).entrer(*this);
        break;
    default:
        break;
    }

    // 12 and 13. The heat-loss rows take the walls and bridges as they are now.
    if (nouvelle == 4 || nouvelle == 5)
        propagerVersPertes();
    if (nouvelle == 5)
        feuille(5).entrer(*this);

    // 14.
    m_etat.LigneCourante = 0;
    m_etat.ColonneCourante = 0;
    if (extensions.sauvegardeInter && quittee != nouvelle)
        extensions.sauvegardeInter(quittee);
    majMenus();
    majBoutons();
    m_vue.grillesModifiees = true;
}

void Classeur::SelectionnerOnglet(int onglet)
{
    const int f = onglet - 1;
    if (f < 0 || f > 7 || f == m_etat.FeuilleActive)
        return;
    m_etat.IgnorerCombo = 1;
    changerFeuille(f);
}

void Classeur::RecalculerTout()
{
    for (int i = 0; i < int(m_feuilles.size()); ++i)
        feuille(i).recalculerFeuille(*this);
    m_vue.grillesModifiees = true;
}

void Classeur::viderCopieTableau()
{
    m_copieTableau = Grid(1, 0);
    majBoutons();
}

void Classeur::ConstruireListes()
{
    Grid &parois = m_etude.flexGrid[1];
    m_etat.ListeParois.clear();
    for (int r = 3; r < parois.rows(); ++r) {
        if (parois.text(r, 1).trimmed().isEmpty() || parois.text(r, 11).trimmed().isEmpty())
            continue;
        // A wall gets its number the first time it is taken.
        if (parois.text(r, 0).trimmed().isEmpty()) {
            ++m_etude.compteurParois;
            parois.setText(r, 0, Format(m_etude.compteurParois, QStringLiteral("0000")));
        }
        m_etat.ListeParois << QStringList {parois.text(r, 1),  parois.text(r, 3),
                                           parois.text(r, 4),  parois.text(r, 5),
                                           parois.text(r, 11), parois.text(r, 12),
                                           parois.text(r, 0)}
                                  .join(QLatin1Char('@'));
    }
    m_etat.NombreParois = int(m_etat.ListeParois.size()) + 1;

    Grid &ponts = m_etude.flexGrid[2];
    m_etat.ListePonts.clear();
    for (int r = 3; r < ponts.rows(); ++r) {
        if (ponts.text(r, 1).trimmed().isEmpty())
            continue;
        m_etat.ListePonts << QStringList {ponts.text(r, 1), ponts.text(r, 3), ponts.text(r, 13),
                                          ponts.text(r, 0)}
                                 .join(QLatin1Char('@'));
    }
    m_etat.NombrePonts = int(m_etat.ListePonts.size()) + 1;
}

namespace {

// Entries of the new list whose key stands in the old one with another text.
QStringList entreesModifiees(const QStringList &avant, const QStringList &apres)
{
    QStringList modifiees;
    for (const QString &n : apres)
        for (const QString &a : avant)
            if (a.right(4) == n.right(4) && a != n) {
                modifiees << n;
                break;
            }
    return modifiees;
}

} // namespace

void Classeur::propagerVersPertes()
{
    Grid &pertes = m_etude.flexGrid[4];
    m_etat.ListeParoisPrecedente = m_etat.ListeParois;
    m_etat.ListePontsPrecedente = m_etat.ListePonts;
    ConstruireListes();
    const QStringList parois = entreesModifiees(m_etat.ListeParoisPrecedente, m_etat.ListeParois);
    const QStringList ponts = entreesModifiees(m_etat.ListePontsPrecedente, m_etat.ListePonts);
    if (!parois.isEmpty() || !ponts.isEmpty())
        m_ui.messageAttente(QStringLiteral("Mise à jour des calculs, veuillez patienter."));

    const qint32 verrou = m_etat.CouleurVerrouillee;
    auto nom = [&](int r, const QString &texte) {
        for (int c = 1; c <= 6; ++c) {
            pertes.setText(r, c, texte);
            Cell *p = pertes.cellPtr(r, c);
            p->attributs.couleurFond = verrou;
            p->attributs.alignement = AlignementDroiteCentre;
        }
    };
    // Every heat-loss row holding the key of a changed entry is rewritten, then recomputed.
    auto reecrire = [&](const QStringList &entrees, int champsMinimum, const QString &code,
                        const std::function<void(int, const QStringList &)> &champsLigne) {
        for (const QString &entree : entrees) {
            const QStringList champs = entree.split(QLatin1Char('@'));
            if (champs.size() < champsMinimum)
                continue;
            const QString cle = entree.right(4);
            for (int r = 4; r < pertes.rows(); ++r) {
                if (pertes.text(r, 20) != cle)
                    continue;
                pertes.setMergeRow(r, true);
                pertes.setText(r, 0, code);
                nom(r, champs[0]);
                champsLigne(r, champs);
                pertes.setText(r, 18, QStringLiteral("       "));
                pertes.setText(r, 20, cle);
                feuille(4).recalculerLigne(*this, r);
            }
        }
    };
    reecrire(parois, 7, QStringLiteral("TableauLigneCalculParoi"),
             [&](int r, const QStringList &champs) {
                 // Code, the two fields, U and the last field, all copies: locked.
                 for (int i = 0; i < 5; ++i) {
                     pertes.setText(r, 9 + i, champs[1 + i]);
                     pertes.cellPtr(r, 9 + i)->attributs.couleurFond = verrou;
                 }
                 pertes.setText(r, 14, QStringLiteral("   "));
             });
    reecrire(ponts, 4, QStringLiteral("TableauLigneCalculPontThermique"),
             [&](int r, const QStringList &champs) {
                 pertes.setText(r, 7, QString());
                 pertes.cellPtr(r, 7)->attributs.couleurFond = m_etat.CouleurSaisie;
                 pertes.setText(r, 9, champs[1]);
                 for (int c = 10; c <= 13; ++c)
                     pertes.setText(r, c, QStringLiteral(" "));
                 pertes.setText(r, 14, champs[2]);
                 pertes.setText(r, 16, QStringLiteral("     "));
                 pertes.setText(r, 17, QStringLiteral("1.00"));
             });

    if (m_etat.FeuilleActive == 4 && !m_etat.ModeTransfert) {
        bool donnees = false;
        for (int r = 3; r <= m_etat.NombreParois + 5 && r < pertes.rows() && !donnees; ++r)
            for (int c = 0; c < pertes.cols(); ++c)
                if (!pertes.text(r, c).trimmed().isEmpty()) {
                    donnees = true;
                    break;
                }
        if (!donnees)
            feuille(4).nouveauTableau(*this, 3);
        pertes.row = 1;
        pertes.col = 2;
        int largeur = 310;
        for (int c = 0; c <= 18 && c < pertes.cols(); ++c)
            largeur += pertes.colWidth(c);
        m_vue.largeurGrille = largeur;
    }
    if (m_etat.ChangementMeteo == QLatin1String("Oui")) {
        m_etat.ChangementMeteo = QStringLiteral("Non");
        for (int r = 0; r < pertes.rows(); ++r)
            if (codeLigne(r) == QLatin1String("TableauLigne1"))
                pertes.setText(r, 11, QString::number(m_etude.temperatureBaseCorrigee));
        feuille(4).recalculerResultats(*this);
    }
    if (m_etat.ChangementVentilation == QLatin1String("Oui")) {
        m_etat.ChangementVentilation = QStringLiteral("Non");
        m_etat.MiseAJourResultats = 1;
        feuille(4).recalculerResultats(*this);
    }
    if (!parois.isEmpty() || !ponts.isEmpty())
        m_ui.fermerMessageAttente();
}

// ---- Colours and closing ----------------------------------------------------------------

void Classeur::repeindreVerrouillees(qint32 ancienne, qint32 nouvelle)
{
    auto repeindre = [&](Grid &g) {
        for (int r = 0; r < g.rows(); ++r)
            for (int c = 0; c < g.cols(); ++c) {
                Cell *p = g.cellPtr(r, c);
                if (p->attributs.couleurFond == ancienne)
                    p->attributs.couleurFond = nouvelle;
            }
    };
    for (Grid &g : m_etude.flexGrid)
        repeindre(g);
    for (Grid &g : m_etude.flexGrid2)
        repeindre(g);
    for (Grid &g : m_etude.flexGrid3)
        repeindre(g);
    m_vue.grillesModifiees = true;
}

void Classeur::ChangerCouleurVerrouillee(qint32 couleur)
{
    // The input colour cannot become the locked one: every cell would lock.
    if (couleur == m_etat.CouleurSaisie || couleur == m_etat.CouleurVerrouillee)
        return;
    RecordWriter w;
    w.integerRecord(couleur);
    ecrireFichier(m_dossier.fichier(QStringLiteral("Couleur.txt")), w);
    repeindreVerrouillees(m_etat.CouleurVerrouillee, couleur);
    m_etat.CouleurVerrouillee = couleur;
    m_vue.couleurAide = couleur;
}

void Classeur::CouleurParDefaut()
{
    ChangerCouleurVerrouillee(CouleurSystemeInfoBulle);
}

bool Classeur::Fermeture()
{
    if (m_vue.saisie.visible)
        ValiderSaisie();
    if (m_etat.EtudeModifiee && !m_etat.ModeTransfert
        && m_ui.question(QStringLiteral("Enregistrement du fichier ?"),
                         QStringLiteral("Thermique."))
        && extensions.enregistrerSous)
        extensions.enregistrerSous();
    ecrireReglages();
    return true;
}

QString Classeur::aideGenerale()
{
    return aideClic;
}

} // namespace thermique
