#include "fenetreprincipale.h"

#include "barremenus.h"
#include "boitesaisie.h"
#include "couleurs.h"
#include "listecellule.h"
#include "modelegrille.h"
#include "twips.h"
#include "vuegrille.h"

#include "workbook/classeur.h"

#include <QCloseEvent>
#include <QDateTime>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QScreen>
#include <QStackedWidget>
#include <QTabBar>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace thermique::gui {

namespace {

const char *const nomsFeuilles[FenetrePrincipale::NombreOnglets] = {
    "Administratif",     "Coef - U",  "Coef - Pth",         "Ventilation",
    "Pertes de chaleur", "Coef-Ubat", "Besoins thermiques", "Consommations",
};

constexpr int LignesAide = 5;

// Resets a flag when the scope ends, whatever the way out.
class Drapeau
{
public:
    explicit Drapeau(bool &drapeau)
        : m_drapeau(drapeau)
    {
        m_drapeau = true;
    }
    ~Drapeau() { m_drapeau = false; }
    Drapeau(const Drapeau &) = delete;
    Drapeau &operator=(const Drapeau &) = delete;

private:
    bool &m_drapeau;
};

// Dark text on a light panel, light text on a dark one (the locked colour may be black).
QColor texteLisible(const QColor &fond)
{
    return fond.lightnessF() < 0.5 ? QColor(Qt::white) : QColor(Qt::black);
}

} // namespace

FenetrePrincipale::FenetrePrincipale(Classeur &classeur, QWidget *parent)
    : QMainWindow(parent)
    , m_classeur(classeur)
{
    setObjectName(QStringLiteral("Form1"));
    m_menus = new BarreMenus(menuBar());
    connect(m_menus, &BarreMenus::choisi, this,
            [this](const QString &nom) { appeler([&] { m_classeur.Menu(nom); }); });
    construireBarreOutils();
    construireCentre();
    rafraichir();
}

FenetrePrincipale::~FenetrePrincipale() = default;

void FenetrePrincipale::construireBarreOutils()
{
    m_barreOutils = addToolBar(QStringLiteral("Outils"));
    m_barreOutils->setObjectName(QStringLiteral("Frame1"));
    m_barreOutils->setMovable(false);
    m_barreOutils->setFloatable(false);
    m_barreOutils->toggleViewAction()->setVisible(false);
    m_barreOutils->setContextMenuPolicy(Qt::PreventContextMenu);
    for (int i = 0; i < NombreBoutons; ++i) {
        auto *bouton = new QToolButton(m_barreOutils);
        bouton->setObjectName(QStringLiteral("Command1_%1").arg(i));
        bouton->setToolButtonStyle(Qt::ToolButtonTextOnly);
        bouton->setAutoRaise(false);
        // Taking the focus makes an open input box commit before the command runs.
        bouton->setFocusPolicy(Qt::StrongFocus);
        bouton->installEventFilter(this);
        connect(bouton, &QToolButton::clicked, this,
                [this, i] { appeler([&] { m_classeur.Bouton(i); }); });
        m_boutons[i] = bouton;
        m_actionsBoutons[i] = m_barreOutils->addWidget(bouton);
    }
    // Command2, on the Coef-U sheet only.
    auto *informations = new QToolButton(m_barreOutils);
    informations->setObjectName(QStringLiteral("Command2"));
    informations->setText(QStringLiteral("Informations thechniques"));
    informations->setFocusPolicy(Qt::StrongFocus);
    connect(informations, &QToolButton::clicked, this,
            [this] { appeler([&] { m_classeur.BoutonInformations(); }); });
    m_actionInformations = m_barreOutils->addWidget(informations);
}

void FenetrePrincipale::construireCentre()
{
    auto *centre = new QWidget(this);
    auto *disposition = new QVBoxLayout(centre);
    disposition->setContentsMargins(4, 2, 4, 4);
    disposition->setSpacing(2);

    auto *ligneOnglets = new QHBoxLayout;
    ligneOnglets->setSpacing(8);
    m_onglets = new QTabBar(centre);
    m_onglets->setObjectName(QStringLiteral("TabStrip1"));
    m_onglets->setExpanding(false);
    m_onglets->setDrawBase(false);
    // All eight tabs stay in sight: the window never gets narrower than they are.
    m_onglets->setUsesScrollButtons(false);
    m_onglets->setFocusPolicy(Qt::StrongFocus);
    for (const char *nom : nomsFeuilles)
        m_onglets->addTab(QString::fromUtf8(nom).replace(QLatin1Char('&'), QLatin1String("&&")));
    connect(m_onglets, &QTabBar::currentChanged, this, [this](int index) {
        if (index >= 0)
            appeler([&] { m_classeur.ChangementFeuille(index + 1); });
    });
    ligneOnglets->addWidget(m_onglets);
    ligneOnglets->addStretch(1);
    m_version = new QLabel(centre);
    m_version->setObjectName(QStringLiteral("Label2"));
    m_version->setEnabled(false);
    ligneOnglets->addWidget(m_version);
    disposition->addLayout(ligneOnglets);

    m_pile = new QStackedWidget(centre);
    for (int i = 0; i < NombreOnglets; ++i) {
        auto *vue = new VueGrille(m_pile);
        vue->setObjectName(QStringLiteral("FlexGrid_%1").arg(i));
        connecterVue(vue);
        m_vues[i] = vue;
        m_pile->addWidget(vue);
    }
    disposition->addWidget(m_pile, 1);

    m_aide = new QPlainTextEdit(centre);
    m_aide->setObjectName(QStringLiteral("Text2"));
    m_aide->setReadOnly(true);
    m_aide->setFixedHeight(m_aide->fontMetrics().lineSpacing() * LignesAide + 10);
    disposition->addWidget(m_aide);
    setCentralWidget(centre);

    QWidget *feuille = m_vues[0]->viewport();
    m_boite = new BoiteSaisie(feuille);
    m_boite->definirTouche([this](int code, int masque, bool debut, bool fin) {
        bool prise = false;
        appeler([&] { prise = m_classeur.SaisieTouche(code, masque, debut, fin); });
        return prise;
    });
    connect(m_boite, &BoiteSaisie::texteChange, this, [this](const QString &texte) {
        appeler([&] { m_classeur.SaisieTexteChange(texte); });
    });
    connect(m_boite, &BoiteSaisie::perteFocus, this,
            [this] { appeler([&] { m_classeur.SaisiePerteFocus(); }); });

    for (int i = 0; i < 2; ++i) {
        m_listes[i] = new ListeCellule(i == 0 ? QStringLiteral("Combo1") : QStringLiteral("Combo3"),
                                       feuille);
        connect(m_listes[i], &ListeCellule::choix, this,
                [this, i](int index) { appeler([&] { m_classeur.ChoixListe(i, index); }); });
    }
}

void FenetrePrincipale::connecterVue(VueGrille *vue)
{
    connect(vue, &VueGrille::cliqueCellule, this,
            [this](int r, int c) { appeler([&] { m_classeur.CliqueCellule(r, c); }); });
    connect(vue, &VueGrille::clicDroitCellule, this,
            [this](int r, int c) { appeler([&] { m_classeur.ClicDroitCellule(r, c); }); });
    connect(vue, &VueGrille::doubleCliqueCellule, this,
            [this](int r, int c) { appeler([&] { m_classeur.DoubleCliqueCellule(r, c); }); });
    connect(vue, &VueGrille::survolCellule, this, [this](int r, int c, bool majuscule, int y) {
        appeler([&] { m_classeur.SurvolCellule(r, c, majuscule, y); });
    });
    connect(vue, &VueGrille::defilement, this,
            [this] { appeler([&] { m_classeur.DefilementGrille(); }); });
    connect(vue, &VueGrille::toucheEnfoncee, this, [this](int code, int masque) {
        appeler([&] { m_classeur.ToucheEnfoncee(code, masque); });
    });
    connect(vue, &VueGrille::toucheCaractere, this,
            [this](int code) { appeler([&] { m_classeur.ToucheCaractere(code); }); });
    connect(vue, &VueGrille::selectionEtendue, this, &FenetrePrincipale::etendreSelection);
}

template<typename Appel> void FenetrePrincipale::appeler(Appel &&appel)
{
    // A message box opened by a handler runs its own event loop: what the user does to the
    // window meanwhile must not start a second handler inside the first.
    if (m_dansAppel || m_enRafraichissement)
        return;
    {
        Drapeau d(m_dansAppel);
        appel();
    }
    rafraichir();
}

void FenetrePrincipale::demarrer(const QString &cheminEtude)
{
    if (const QScreen *ecran = screen()) {
        const QRect zone = ecran->availableGeometry();
        m_classeur.definirEcran(twips(zone.width()), twips(zone.height()));
    }
    appeler([&] { m_classeur.ChargementInitial(cheminEtude); });
}

void FenetrePrincipale::etendreSelection(int ligne, int colonne)
{
    // The grid control's own selection: the far end follows the pointer, the current cell
    // stays where the button went down.
    if (m_dansAppel || m_enRafraichissement)
        return;
    if (m_classeur.EtendreSelection(ligne, colonne))
        rafraichir();
}

int FenetrePrincipale::indexVueActive() const
{
    return std::clamp(m_classeur.vue().grilleVisible, 0, NombreOnglets - 1);
}

VueGrille *FenetrePrincipale::vueActive() const
{
    return m_vues[indexVueActive()];
}

const Grid *FenetrePrincipale::grilleDeVue(int index) const
{
    const Study &e = m_classeur.etude();
    const EtatSession &s = m_classeur.etat();
    if (index == 6)
        return &e.flexGrid2[std::clamp(s.SousFeuilleBesoins, 0, Study::NombreFeuillesBesoins - 1)];
    if (index == 7)
        return &e.flexGrid3[std::clamp(s.FeuilleConsommation, 0,
                                       Study::NombreFeuillesConsommations - 1)];
    return &e.flexGrid[index];
}

void FenetrePrincipale::rafraichir()
{
    if (m_enRafraichissement)
        return;
    Drapeau d(m_enRafraichissement);
    EtatVue &v = m_classeur.vue();

    if (!v.titre.isEmpty() && windowTitle() != v.titre)
        setWindowTitle(v.titre);
    {
        // Back on the active sheet when the controller refused the tab clicked.
        const QSignalBlocker bloque(m_onglets);
        m_onglets->setCurrentIndex(
            std::clamp(m_classeur.etat().FeuilleActive, 0, NombreOnglets - 1));
    }
    rafraichirGrilles();
    VueGrille *vue = vueActive();
    rafraichirSaisie(vue);
    rafraichirListes(vue);

    const QString aide = texteAffiche(v.aide);
    if (m_aide->toPlainText() != aide)
        m_aide->setPlainText(aide);
    m_aide->setVisible(v.aideVisible);
    QPalette p = m_aide->palette();
    const QColor fond = couleurQt(v.couleurAide);
    p.setColor(QPalette::Base, fond);
    p.setColor(QPalette::Text, texteLisible(fond));
    m_aide->setPalette(p);
    m_version->setText(v.etiquetteVersion);
    rafraichirImage(v.image);
    rafraichirLogo();

    m_menus->appliquer(v.menus);
    rafraichirBoutons();
    rafraichirFenetre();
    v.grillesModifiees = false;

    if (v.fermetureDemandee) {
        v.fermetureDemandee = false;
        // After the menu's own handling is over.
        QMetaObject::invokeMethod(this, &QWidget::close, Qt::QueuedConnection);
    }
}

void FenetrePrincipale::rafraichirLogo()
{
    // The user's logo stands in the identity cell of the cover page; the picture is read
    // again only when the file changes.
    QString cle;
    if (m_classeur.etat().LogoIdentite) {
        const QFileInfo fichier(m_classeur.dossier().fichier(QStringLiteral("Logo/Logo.jpg")));
        cle = fichier.absoluteFilePath() + fichier.lastModified().toString(Qt::ISODateWithMs);
    }
    if (cle == m_cleLogo)
        return;
    m_cleLogo = cle;
    m_vues[0]->definirImage(
        2, 3,
        cle.isEmpty() ? QPixmap()
                      : QPixmap(m_classeur.dossier().fichier(QStringLiteral("Logo/Logo.jpg"))));
}

void FenetrePrincipale::rafraichirImage(const QString &chemin)
{
    // Frm_ImageAffiche: a small window beside the sheet with the pointed detail.
    if (chemin == m_cheminImage)
        return;
    m_cheminImage = chemin;
    const QPixmap image(chemin);
    if (chemin.isEmpty() || image.isNull()) {
        if (m_image)
            m_image->hide();
        return;
    }
    if (!m_image) {
        m_image = new QLabel(this, Qt::Tool | Qt::WindowDoesNotAcceptFocus);
        m_image->setObjectName(QStringLiteral("Frm_ImageAffiche"));
        m_image->setAttribute(Qt::WA_ShowWithoutActivating);
        m_image->setWindowTitle(QStringLiteral("Thermique"));
    }
    m_image->setPixmap(image);
    m_image->adjustSize();
    m_image->move(geometry().right() - m_image->width() - 20, geometry().top() + 120);
    m_image->show();
}

void FenetrePrincipale::rafraichirGrilles()
{
    const int active = indexVueActive();
    VueGrille *vue = m_vues[active];
    const bool changement = m_pile->currentWidget() != vue;
    const bool focusDansAncienne = changement && m_pile->currentWidget()
        && m_pile->currentWidget()->isAncestorOf(focusWidget());
    vue->definirGrille(grilleDeVue(active));
    m_pile->setCurrentWidget(vue);
    // Hidden grids are brought up to date when they are shown.
    vue->rafraichir();
    if (focusDansAncienne || (changement && !focusWidget()))
        vue->setFocus(Qt::OtherFocusReason);
}

void FenetrePrincipale::rafraichirSaisie(VueGrille *vue)
{
    const thermique::BoiteSaisie &s = m_classeur.vue().saisie;
    const Grid &g = vue->modele()->copie();
    const bool avaitFocus = m_boite->hasFocus();
    if (m_boite->parentWidget() != vue->viewport()) {
        m_boite->masquer();
        m_boite->setParent(vue->viewport());
    }
    if (!s.visible || !g.contient(s.ligne, s.colonne)) {
        m_boite->masquer();
        if (avaitFocus)
            vue->setFocus(Qt::OtherFocusReason);
        return;
    }
    const QModelIndex index = vue->modele()->index(s.ligne, s.colonne);
    vue->scrollTo(index);
    const QFont police = index.data(Qt::FontRole).value<QFont>();
    m_boite->afficher(s, vue->rectCellule(s.ligne, s.colonne), police, couleurQt(s.couleurFond),
                      vue->viewport()->width());
    if (!m_boite->hasFocus())
        m_boite->setFocus(Qt::OtherFocusReason);
}

void FenetrePrincipale::rafraichirListes(VueGrille *vue)
{
    const Grid &g = vue->modele()->copie();
    for (int i = 0; i < 2; ++i) {
        const ListeDeroulante &l = m_classeur.vue().listes[i];
        ListeCellule *liste = m_listes[i];
        if (liste->parentWidget() != vue->viewport()) {
            liste->hide();
            liste->setParent(vue->viewport());
        }
        if (l.visible && g.contient(l.ligne, l.colonne))
            liste->afficher(l, vue->rectCellule(l.ligne, l.colonne));
        else
            liste->hide();
    }
}

void FenetrePrincipale::rafraichirBoutons()
{
    const auto &boutons = m_classeur.vue().boutons;
    for (int i = 0; i < NombreBoutons; ++i) {
        const BoutonOutil &b = boutons[i];
        QToolButton *bouton = m_boutons[i];
        if (bouton->text() != b.libelle)
            bouton->setText(b.libelle);
        bouton->setToolTip(b.infobulle);
        bouton->setEnabled(b.actif);
        m_actionsBoutons[i]->setVisible(b.visible);
    }
    m_actionInformations->setVisible(m_classeur.vue().boutonInformations);
}

void FenetrePrincipale::rafraichirFenetre()
{
    const EtatVue &v = m_classeur.vue();
    if (v.largeurFenetre <= 0 || v.hauteurFenetre <= 0)
        return;
    // Wide enough for the toolbar of the sheet, so that no command hides behind the
    // overflow arrow.
    const QSize taille(std::max(pixels(v.largeurFenetre), m_barreOutils->sizeHint().width() + 24),
                       pixels(v.hauteurFenetre));
    if (taille == m_tailleAppliquee && v.centrerFenetre == m_centrageApplique)
        return;
    m_tailleAppliquee = taille;
    m_centrageApplique = v.centrerFenetre;
    if (isMaximized() || isMinimized())
        showNormal();
    const QRect zone = screen() ? screen()->availableGeometry() : QRect(QPoint(), taille);
    resize(taille.boundedTo(zone.size()));
    if (v.centrerFenetre) {
        const int marge = frameGeometry().width() - width();
        move(zone.left() + std::max(0, (zone.width() - width() - marge) / 2), zone.top());
    }
}

void FenetrePrincipale::closeEvent(QCloseEvent *evenement)
{
    if (m_dansAppel || m_enRafraichissement) {
        evenement->ignore();
        return;
    }
    bool fermer = true;
    {
        Drapeau d(m_dansAppel);
        fermer = m_classeur.Fermeture();
    }
    rafraichir();
    if (fermer)
        evenement->accept();
    else
        evenement->ignore();
}

bool FenetrePrincipale::eventFilter(QObject *objet, QEvent *evenement)
{
    if (evenement->type() == QEvent::Enter) {
        for (int i = 0; i < NombreBoutons; ++i)
            if (objet == m_boutons[i])
                appeler([&] { m_classeur.SurvolBouton(i); });
    }
    return QMainWindow::eventFilter(objet, evenement);
}

} // namespace thermique::gui
