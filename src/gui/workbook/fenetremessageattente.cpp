#include "fenetremessageattente.h"

#include "couleurs.h"

#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>

namespace thermique::gui {

namespace {
constexpr qint32 CouleurTexte = 255; // red
constexpr int HauteurBande = 90;
} // namespace

FenetreMessageAttente::FenetreMessageAttente(QWidget *parent)
    : QWidget(parent,
              Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint
                  | Qt::WindowDoesNotAcceptFocus)
    , m_etiquette(new QLabel(this))
{
    setObjectName(QStringLiteral("Frm_Message"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    setWindowOpacity(0.85);
    m_etiquette->setAlignment(Qt::AlignCenter);
    QPalette p = m_etiquette->palette();
    p.setColor(QPalette::WindowText, couleurQt(CouleurTexte));
    m_etiquette->setPalette(p);
    auto *disposition = new QVBoxLayout(this);
    disposition->addWidget(m_etiquette);
    m_minuterie.setInterval(60);
    connect(&m_minuterie, &QTimer::timeout, this, &FenetreMessageAttente::respirer);
}

void FenetreMessageAttente::afficher(const QString &texte)
{
    QFont f = m_etiquette->font();
    f.setPointSize(TailleMaximale);
    m_etiquette->setFont(f);
    m_etiquette->setText(texte);
    m_pas = -1;

    const QScreen *ecran
        = parentWidget() ? parentWidget()->screen() : QGuiApplication::primaryScreen();
    const QRect zone = ecran ? ecran->availableGeometry() : QRect(0, 0, 800, 600);
    setGeometry(zone.left(), zone.top() + (zone.height() - HauteurBande) / 2, zone.width(),
                HauteurBande);
    show();
    raise();
    m_minuterie.start();
}

void FenetreMessageAttente::fermer()
{
    m_minuterie.stop();
    hide();
}

void FenetreMessageAttente::respirer()
{
    QFont f = m_etiquette->font();
    int taille = f.pointSize() + m_pas;
    if (taille <= TailleMinimale || taille >= TailleMaximale) {
        taille = std::clamp(taille, TailleMinimale, TailleMaximale);
        m_pas = -m_pas;
    }
    f.setPointSize(taille);
    m_etiquette->setFont(f);
}

} // namespace thermique::gui
