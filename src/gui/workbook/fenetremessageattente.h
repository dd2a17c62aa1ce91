#pragma once

#include <QTimer>
#include <QWidget>

class QLabel;

namespace thermique::gui {

// The wait strip (Frm_Message): a borderless, always-on-top, half-transparent band as wide
// as the screen, with a red message whose size breathes while the event loop runs, so
// that the user sees the program alive during long work.
class FenetreMessageAttente : public QWidget
{
    Q_OBJECT

public:
    explicit FenetreMessageAttente(QWidget *parent = nullptr);

    void afficher(const QString &texte);
    void fermer();

    QLabel *etiquette() const { return m_etiquette; }

    static constexpr int TailleMaximale = 20;
    static constexpr int TailleMinimale = 7;

private:
    void respirer();

    QLabel *m_etiquette;
    QTimer m_minuterie;
    int m_pas = -1;
};

} // namespace thermique::gui
