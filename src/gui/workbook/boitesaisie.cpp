#include "boitesaisie.h"

#include "touches.h"
#include "twips.h"

#include "workbook/etatvue.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <QTextBlock>

namespace thermique::gui {

namespace {

// The box is a little narrower than its cell so that the grid line stays visible.
constexpr int RetraitLargeur = 8; // twips
constexpr int RetraitBordDroit = 100; // twips, from the grid's right edge when the box grows

QString texteBoite(const QString &texteCellule)
{
    QString t = texteCellule;
    t.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    t.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return t;
}

} // namespace

BoiteSaisie::BoiteSaisie(QWidget *parent)
    : QPlainTextEdit(parent)
{
    setObjectName(QStringLiteral("Text1"));
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setLineWrapMode(QPlainTextEdit::WidgetWidth);
    setTabChangesFocus(true);
    setViewportMargins(0, 0, 0, 0);
    document()->setDocumentMargin(1);
    hide();
    connect(this, &QPlainTextEdit::textChanged, this, [this] {
        ajuster();
        if (!m_interne)
            emit texteChange(texteCellule());
    });
}

QString BoiteSaisie::texteCellule() const
{
    QString t = toPlainText();
    t.replace(QLatin1Char('\n'), QLatin1String("\r\n"));
    return t;
}

void BoiteSaisie::afficher(const thermique::BoiteSaisie &etat, const QRect &cellule,
                           const QFont &police, const QColor &fond, int bordDroit)
{
    m_interne = true;
    const bool nouvelle = isHidden() || cellule != m_cellule;
    if (font() != police)
        setFont(police);
    QPalette p = palette();
    p.setColor(QPalette::Base, fond);
    p.setColor(QPalette::Window, fond);
    setPalette(p);
    m_cellule = cellule;
    m_marge = etat.marge;
    m_extensible = etat.extensible;
    m_bordDroit = bordDroit;
    // The grid may still be taking its size: the box follows its right edge.
    if (m_grilleSurveillee != parentWidget()) {
        if (m_grilleSurveillee)
            m_grilleSurveillee->removeEventFilter(this);
        m_grilleSurveillee = parentWidget();
        if (m_grilleSurveillee)
            m_grilleSurveillee->installEventFilter(this);
    }

    // Rewriting an unchanged text would move the caret while the user types.
    const QString texte = texteBoite(etat.texte);
    if (toPlainText() != texte || nouvelle) {
        if (toPlainText() != texte)
            setPlainText(texte);
        QTextCursor curseur = textCursor();
        curseur.setPosition(std::clamp(etat.debutSelection, 0, int(texte.size())));
        setTextCursor(curseur);
    }
    ajuster();
    show();
    raise();
    m_interne = false;
}

void BoiteSaisie::masquer()
{
    if (isHidden())
        return;
    m_interne = true;
    hide();
    m_interne = false;
}

QRect BoiteSaisie::geometrie(const QRect &cellule, const QString &texte, const QString &marge,
                             bool extensible, int bordDroit, const QFontMetrics &mesure)
{
    // The bottom grid line stays visible too, as the right one does.
    QRect r(cellule.left(), cellule.top(),
            std::max(4, cellule.width() - std::max(1, pixels(RetraitLargeur))),
            std::max(4, cellule.height() - 1));
    if (!extensible)
        return r;
    int largeurTexte = 0;
    for (const QString &ligne : texteBoite(texte).split(QLatin1Char('\n')))
        largeurTexte = std::max(largeurTexte, mesure.horizontalAdvance(ligne + marge));
    r.setWidth(std::max(r.width(), largeurTexte));
    const int limite = bordDroit - pixels(RetraitBordDroit);
    if (r.left() + r.width() > limite) {
        r.setWidth(std::max(4, limite - r.left()));
        r.setHeight(cellule.height() * 2 - 1);
    }
    return r;
}

void BoiteSaisie::ajuster()
{
    if (m_cellule.isNull())
        return;
    setGeometry(
        geometrie(m_cellule, toPlainText(), m_marge, m_extensible, m_bordDroit, fontMetrics()));
    ensureCursorVisible();
}

bool BoiteSaisie::eventFilter(QObject *objet, QEvent *evenement)
{
    if (objet == m_grilleSurveillee && evenement->type() == QEvent::Resize && !isHidden()) {
        m_bordDroit = m_grilleSurveillee->width();
        ajuster();
    }
    return QPlainTextEdit::eventFilter(objet, evenement);
}

void BoiteSaisie::keyPressEvent(QKeyEvent *evenement)
{
    const int code = codeTouche(*evenement);
    const bool surveillee = code == Touche::Entree || code == Touche::Echap
        || (code >= Touche::Gauche && code <= Touche::Bas);
    if (surveillee && m_touche) {
        const QTextCursor curseur = textCursor();
        const bool debut = curseur.position() == 0;
        const bool fin = curseur.position() == document()->characterCount() - 1;
        if (m_touche(code, masqueTouches(*evenement), debut, fin)) {
            evenement->accept();
            return;
        }
    }
    QPlainTextEdit::keyPressEvent(evenement);
}

void BoiteSaisie::focusOutEvent(QFocusEvent *evenement)
{
    QPlainTextEdit::focusOutEvent(evenement);
    // Another window coming up (a message, a menu) is not leaving the cell.
    const auto raison = evenement->reason();
    if (m_interne || isHidden() || raison == Qt::ActiveWindowFocusReason
        || raison == Qt::PopupFocusReason)
        return;
    emit perteFocus();
}

} // namespace thermique::gui
