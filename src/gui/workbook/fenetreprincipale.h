#pragma once

#include <QMainWindow>

#include <array>

class QLabel;
class QPlainTextEdit;
class QStackedWidget;
class QTabBar;
class QToolBar;
class QToolButton;

namespace thermique {
class Classeur;
class Grid;
} // namespace thermique

namespace thermique::gui {

class BarreMenus;
class BoiteSaisie;
class ListeCellule;
class VueGrille;

// The workbook window (Form1): menus, toolbar, the tabs of the eight sheets, the grid of the
// active sheet with its input box and lists, and the help panel. Every event becomes a call
// of the workbook controller; after each call the window redraws from the study and the
// controller's view state, and does nothing else.
class FenetrePrincipale : public QMainWindow
{
    Q_OBJECT

public:
    static constexpr int NombreOnglets = 8;
    static constexpr int NombreBoutons = 10;

    explicit FenetrePrincipale(Classeur &classeur, QWidget *parent = nullptr);
    ~FenetrePrincipale() override;

    // Gives the controller the screen size, loads the workbook (and the study given, if
    // any) and shows its state.
    void demarrer(const QString &cheminEtude = {});
    // Redraws everything from the study and the controller's view state.
    void rafraichir();

    Classeur &classeur() { return m_classeur; }
    QTabBar *onglets() const { return m_onglets; }
    VueGrille *vue(int feuille) const { return m_vues.at(feuille); }
    VueGrille *vueActive() const;
    BoiteSaisie *boiteSaisie() const { return m_boite; }
    ListeCellule *liste(int numero) const { return m_listes.at(numero); }
    QPlainTextEdit *aide() const { return m_aide; }
    QToolButton *bouton(int numero) const { return m_boutons.at(numero); }
    BarreMenus *menus() const { return m_menus; }

protected:
    void closeEvent(QCloseEvent *evenement) override;
    bool eventFilter(QObject *objet, QEvent *evenement) override;

private:
    // Runs one controller call, unless another is still running (a message box of the
    // first lets events through), then redraws.
    template<typename Appel> void appeler(Appel &&appel);

    void construireBarreOutils();
    void construireCentre();
    void connecterVue(VueGrille *vue);
    int indexVueActive() const;
    const Grid *grilleDeVue(int index) const;
    void rafraichirLogo();
    void rafraichirImage(const QString &chemin);
    void rafraichirGrilles();
    void rafraichirSaisie(VueGrille *vue);
    void rafraichirListes(VueGrille *vue);
    void rafraichirBoutons();
    void rafraichirFenetre();
    void etendreSelection(int ligne, int colonne);

    Classeur &m_classeur;
    BarreMenus *m_menus = nullptr;
    QToolBar *m_barreOutils = nullptr;
    std::array<QToolButton *, NombreBoutons> m_boutons {};
    std::array<QAction *, NombreBoutons> m_actionsBoutons {};
    QAction *m_actionInformations = nullptr;
    QLabel *m_image = nullptr;
    QString m_cheminImage;
    QString m_cleLogo;
    QTabBar *m_onglets = nullptr;
    QLabel *m_version = nullptr;
    QStackedWidget *m_pile = nullptr;
    std::array<VueGrille *, NombreOnglets> m_vues {};
    BoiteSaisie *m_boite = nullptr;
    std::array<ListeCellule *, 2> m_listes {};
    QPlainTextEdit *m_aide = nullptr;

    bool m_dansAppel = false;
    bool m_enRafraichissement = false;
    QSize m_tailleAppliquee;
    bool m_centrageApplique = false;
};

} // namespace thermique::gui
