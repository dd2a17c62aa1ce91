#include "dialoguemeteodonnees.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QVBoxLayout>

#include <functional>

namespace thermique::gui {

namespace {

// A label that reports the button pressed on it.
class EtiquetteCliquable : public QLabel
{
public:
    EtiquetteCliquable(std::function<void(Qt::MouseButton)> action, QWidget *parent)
        : QLabel(parent)
        , m_action(std::move(action))
    { }

protected:
    void mousePressEvent(QMouseEvent *e) override { m_action(e->button()); }

private:
    std::function<void(Qt::MouseButton)> m_action;
};

QLineEdit *champLecture(QWidget *parent)
{
    auto *c = new QLineEdit(parent);
    c->setReadOnly(true);
    return c;
}

const char *const cadres[6]
    = {"Fract. d'insolation (%) :", "T ext. moy. (°C) :",      "T ext. moy. maxi (°C) :",
       "T ext. moy. mini (°C) :",   "T ext. maxi abs. (°C) :", "T ext. mini abs. (°C) :"};
const char *const mois[12] = {"Janv.", "Févr.", "Mars",  "Avril", "Mai",  "Juin",
                              "Juil.", "Août",  "Sept.", "Oct.",  "Nov.", "Déc."};

} // namespace

DialogueMeteoDonnees::DialogueMeteoDonnees(MeteoDonnees donnees, QWidget *parent)
    : QDialog(parent)
    , m_donnees(std::move(donnees))
{
    setWindowTitle(QStringLiteral(" Thermique : Caractéristiques météorologiques du site."));
    auto *mise = new QVBoxLayout(this);
    auto *note = new QLabel(
        QStringLiteral("Les caractéristiques du site le plus proche de celui étudié sont "
                       "indiquées sur cette feuille. \nCes données ne sont pas "
                       "modifiables avec cette version de l'application.\n"),
        this);
    note->setWordWrap(true);
    mise->addWidget(note);

    auto *haut = new QFormLayout;
    m_latitude = champLecture(this);
    m_longitude = champLecture(this);
    m_altitude = champLecture(this);
    m_dju = champLecture(this);
    m_libelleDJU = new EtiquetteCliquable(
        [this](Qt::MouseButton b) {
            // Left lowers the base, right raises it.
            m_donnees.changerBase(b == Qt::RightButton ? 1 : -1);
            afficher();
        },
        this);
    m_libelleDJU->setToolTip(QStringLiteral("Clic droit ou gauche pour changer la valeur."));
    m_site = new QComboBox(this);
    m_site->addItems(m_donnees.nomsStations());
    haut->addRow(QStringLiteral("Latitude (°) :"), m_latitude);
    haut->addRow(QStringLiteral("Longitude (°) :"), m_longitude);
    haut->addRow(QStringLiteral("Altitude (m) :"), m_altitude);
    haut->addRow(m_libelleDJU, m_dju);
    haut->addRow(QStringLiteral("Site :"), m_site);
    mise->addLayout(haut);

    for (int f = 0; f < 6; ++f) {
        auto *cadre = new QGroupBox(QString::fromUtf8(cadres[f]), this);
        auto *grille = new QGridLayout(cadre);
        for (int m = 0; m < 12; ++m) {
            grille->addWidget(new QLabel(QString::fromUtf8(mois[m]), cadre), 0, m);
            m_mois[f][m] = champLecture(cadre);
            m_mois[f][m]->setMinimumWidth(64);
            grille->addWidget(m_mois[f][m], 1, m);
        }
        mise->addWidget(cadre);
    }
    afficher();
    connect(m_site, &QComboBox::activated, this, [this](int i) {
        m_donnees.choisirStation(i);
        afficher();
    });
}

void DialogueMeteoDonnees::afficher()
{
    m_latitude->setText(m_donnees.latitude());
    m_longitude->setText(m_donnees.longitude());
    m_altitude->setText(m_donnees.altitude());
    m_libelleDJU->setText(m_donnees.libelleDJU());
    m_dju->setText(m_donnees.texteDJU());
    m_site->setCurrentIndex(m_donnees.stationAffichee());
    for (int m = 1; m <= 12; ++m) {
        m_mois[0][m - 1]->setText(m_donnees.climat().insolation[m - 1]);
        m_mois[1][m - 1]->setText(m_donnees.texteMoyenne(m));
        m_mois[2][m - 1]->setText(m_donnees.texteMaxi(m));
        m_mois[3][m - 1]->setText(m_donnees.texteMini(m));
        for (auto &cadre : m_mois)
            cadre[m - 1]->setCursorPosition(0);
    }
}

} // namespace thermique::gui
