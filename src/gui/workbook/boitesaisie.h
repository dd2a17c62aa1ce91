#pragma once

#include <QPlainTextEdit>
#include <QPointer>

#include <functional>

namespace thermique {
struct BoiteSaisie;
}

namespace thermique::gui {

// The input box (Text1) laid over a cell of the grid view: the only place where the user
// types into a cell. It reports its text, its keys and the loss of focus; the controller
// decides what they do.
class BoiteSaisie : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit BoiteSaisie(QWidget *parent = nullptr);

    // A key of the box that the controller may take (Enter, Escape, arrows), with the caret
    // at the start or the end of the text. Returns true when it took the key.
    using RappelTouche
        = std::function<bool(int code, int masque, bool caretAuDebut, bool caretALaFin)>;
    void definirTouche(RappelTouche touche) { m_touche = std::move(touche); }

    // Shows the box over `cellule` (viewport coordinates) as the controller describes it;
    // `bordDroit` is the right edge of the visible grid.
    void afficher(const thermique::BoiteSaisie &etat, const QRect &cellule, const QFont &police,
                  const QColor &fond, int bordDroit);
    // Hides the box without reporting a loss of focus.
    void masquer();

    // The box's geometry for a text: the cell less the grid line; when it grows, as wide as
    // the text and its margin, and when that would pass the grid's right edge, up to the edge
    // and twice as high so that the text wraps.
    static QRect geometrie(const QRect &cellule, const QString &texte, const QString &marge,
                           bool extensible, int bordDroit, const QFontMetrics &mesure);

    // The text as the cells keep it: lines end with CR LF.
    QString texteCellule() const;

signals:
    void texteChange(const QString &texte);
    void perteFocus();

protected:
    void keyPressEvent(QKeyEvent *evenement) override;
    void focusOutEvent(QFocusEvent *evenement) override;
    bool eventFilter(QObject *objet, QEvent *evenement) override;

private:
    void ajuster();

    RappelTouche m_touche;
    bool m_interne = false;
    QRect m_cellule;
    QString m_marge;
    bool m_extensible = false;
    int m_bordDroit = 0;
    QPointer<QWidget> m_grilleSurveillee;
};

} // namespace thermique::gui
