#include "vuegrille.h"

#include "modelegrille.h"
#include "touches.h"
#include "twips.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>

namespace thermique::gui {

namespace {

// Cells keep their own colours; the current cell is only outlined, as a workbook does,
// so that its locked or input colour stays visible.
class DelegueCellule : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *peintre, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override
    {
        QStyleOptionViewItem opt = option;
        opt.state &= ~(QStyle::State_HasFocus | QStyle::State_Selected);
        const QVariant fond = index.data(Qt::BackgroundRole);
        if (fond.canConvert<QColor>())
            peintre->fillRect(opt.rect, fond.value<QColor>());
        opt.rect.adjust(2, 0, -2, 0); // a little air between the text and the grid lines
        // Text wraps in rows made for several lines; a one-line cell clips its text as a
        // workbook grid does, instead of showing a wrapped first half and an ellipsis.
        const QString texte = index.data(Qt::DisplayRole).toString();
        const QFontMetrics mesure(index.data(Qt::FontRole).value<QFont>());
        if (!texte.contains(QLatin1Char('\n')) && opt.rect.height() < 2 * mesure.lineSpacing())
            opt.features &= ~QStyleOptionViewItem::WrapText;
        QStyledItemDelegate::paint(peintre, opt, index);

        const auto *vue = qobject_cast<const VueGrille *>(opt.widget);
        if (vue && vue->dansSelection(index.row(), index.column())) {
            QColor voile = opt.palette.color(QPalette::Active, QPalette::Highlight);
            voile.setAlpha(70);
            peintre->fillRect(option.rect, voile);
        }
        if (vue && vue->currentIndex() == index) {
            peintre->save();
            QPen stylo(opt.palette.color(QPalette::Active, QPalette::Text));
            stylo.setWidth(2);
            peintre->setPen(stylo);
            peintre->setBrush(Qt::NoBrush);
            peintre->drawRect(option.rect.adjusted(1, 1, -1, -1));
            peintre->restore();
        }
    }
};

} // namespace

VueGrille::VueGrille(QWidget *parent)
    : QTableView(parent)
    , m_modele(new ModeleGrille(this))
{
    setModel(m_modele);
    setItemDelegate(new DelegueCellule(this));
    horizontalHeader()->hide();
    verticalHeader()->hide();
    horizontalHeader()->setMinimumSectionSize(0);
    verticalHeader()->setMinimumSectionSize(0);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionMode(QAbstractItemView::NoSelection);
    setWordWrap(true);
    setTextElideMode(Qt::ElideNone);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setMouseTracking(true);
    setTabKeyNavigation(false);
    setFocusPolicy(Qt::StrongFocus);

    // Only the user's scrolling is reported: the view also scrolls itself to show the
    // current cell, and that must not close the input box.
    for (QScrollBar *barre : {verticalScrollBar(), horizontalScrollBar()})
        connect(barre, &QAbstractSlider::actionTriggered, this, &VueGrille::defilement,
                Qt::QueuedConnection);
}

void VueGrille::definirGrille(const Grid *grille)
{
    if (grille == m_modele->grille())
        return;
    m_modele->definirGrille(grille);
    appliquerDimensions();
    appliquerFusions();
    selectionnerCourante();
}

void VueGrille::rafraichir()
{
    const ModeleGrille::Changements ch = m_modele->rafraichir();
    if (ch.structure || ch.dimensions)
        appliquerDimensions();
    if (ch.structure || ch.fusions)
        appliquerFusions();
    if (ch.structure || ch.dimensions) {
        // Scroll ranges follow the new sizes now, not at the next paint, so that the box
        // laid over a cell right after lands where the cell is.
        executeDelayedItemsLayout();
        updateGeometries();
    }
    selectionnerCourante();
    if (ch.selection)
        viewport()->update();
}

void VueGrille::appliquerDimensions()
{
    const Grid &g = m_modele->copie();
    for (int c = 0; c < g.cols(); ++c) {
        const int largeur = g.colWidth(c);
        setColumnHidden(c, largeur <= 0);
        if (largeur > 0)
            setColumnWidth(c, std::max(1, pixels(largeur)));
    }
    for (int r = 0; r < g.rows(); ++r) {
        const int hauteur = g.rowHeight(r);
        setRowHidden(r, hauteur <= 0);
        if (hauteur > 0)
            setRowHeight(r, std::max(1, pixels(hauteur)));
    }
}

void VueGrille::appliquerFusions()
{
    clearSpans();
    for (const QRect &f : m_modele->fusions())
        setSpan(f.top(), f.left(), f.height(), f.width());
}

void VueGrille::selectionnerCourante()
{
    const Grid &g = m_modele->copie();
    if (!g.contient(g.row, g.col))
        return;
    const QModelIndex courant = m_modele->index(g.row, g.col);
    if (currentIndex() != courant)
        selectionModel()->setCurrentIndex(courant, QItemSelectionModel::NoUpdate);
}

bool VueGrille::dansSelection(int ligne, int colonne) const
{
    // Only a range the user dragged is shown: a selection end left behind when the current
    // cell was moved by program means nothing to the user.
    const Grid &g = m_modele->copie();
    if (m_finSelection != QPoint(g.colSel, g.rowSel) || (g.rowSel == g.row && g.colSel == g.col))
        return false;
    return ligne >= std::min(g.row, g.rowSel) && ligne <= std::max(g.row, g.rowSel)
        && colonne >= std::min(g.col, g.colSel) && colonne <= std::max(g.col, g.colSel);
}

QRect VueGrille::rectCellule(int ligne, int colonne) const
{
    return QRect(columnViewportPosition(colonne), rowViewportPosition(ligne), columnWidth(colonne),
                 rowHeight(ligne));
}

bool VueGrille::celluleSous(const QPoint &position, int &ligne, int &colonne) const
{
    // rowAt/columnAt give the cell under the pointer itself, not the head of its merged
    // range, so a click on a merged row still names the column it fell on.
    ligne = rowAt(position.y());
    colonne = columnAt(position.x());
    return ligne >= 0 && colonne >= 0;
}

void VueGrille::mousePressEvent(QMouseEvent *evenement)
{
    setFocus(Qt::MouseFocusReason);
    m_glisse = {-1, -1};
    m_finSelection = {-1, -1};
    int r = 0, c = 0;
    if (!celluleSous(evenement->position().toPoint(), r, c))
        return;
    // The cell is taken when the button goes down, as a workbook grid does, so that a
    // drag from there can extend the selection.
    if (evenement->button() == Qt::LeftButton) {
        m_glisse = {c, r};
        emit cliqueCellule(r, c);
    } else if (evenement->button() == Qt::RightButton) {
        emit clicDroitCellule(r, c);
    }
}

void VueGrille::mouseReleaseEvent(QMouseEvent *evenement)
{
    if (evenement->button() == Qt::LeftButton)
        m_glisse = {-1, -1};
}

void VueGrille::mouseDoubleClickEvent(QMouseEvent *evenement)
{
    int r = 0, c = 0;
    if (evenement->button() == Qt::LeftButton && celluleSous(evenement->position().toPoint(), r, c))
        emit doubleCliqueCellule(r, c);
}

void VueGrille::mouseMoveEvent(QMouseEvent *evenement)
{
    int r = 0, c = 0;
    if (!celluleSous(evenement->position().toPoint(), r, c))
        return;
    if ((evenement->buttons() & Qt::LeftButton) && m_glisse.x() >= 0 && QPoint(c, r) != m_glisse) {
        m_glisse = {c, r};
        m_finSelection = {c, r};
        emit selectionEtendue(r, c);
    }
    const bool majuscule = evenement->modifiers() & Qt::ShiftModifier;
    // The height of the pointer in the sheet, in twips, scrolled-out rows included: some
    // help texts change within one tall row.
    int y = 0;
    if (const auto *modele = qobject_cast<const ModeleGrille *>(model());
        modele && modele->grille())
        for (int ligne = 0; ligne < r; ++ligne)
            y += modele->grille()->rowHeight(ligne);
    y += (int(evenement->position().y()) - rowViewportPosition(r)) * TwipsParPixel;
    if (QPoint(c, r) == m_survol && majuscule == m_survolMajuscule && y / 100 == m_survolY / 100)
        return;
    m_survol = {c, r};
    m_survolMajuscule = majuscule;
    m_survolY = y;
    emit survolCellule(r, c, majuscule, y);
}

void VueGrille::definirImage(int ligne, int colonne, const QPixmap &image)
{
    if (m_celluleImage == QPoint(colonne, ligne) && m_image.cacheKey() == image.cacheKey())
        return;
    m_image = image;
    m_celluleImage = {colonne, ligne};
    viewport()->update();
}

void VueGrille::paintEvent(QPaintEvent *evenement)
{
    QTableView::paintEvent(evenement);
    if (m_image.isNull() || !model())
        return;
    // Drawn inside the cell's range, keeping its proportions.
    const QRect zone
        = visualRect(model()->index(m_celluleImage.y(), m_celluleImage.x())).adjusted(2, 2, -2, -2);
    if (zone.isEmpty())
        return;
    const QPixmap image
        = m_image.scaled(zone.size(), Qt::KeepAspectRatio, Qt::SmoothTransformation);
    QPainter peintre(viewport());
    peintre.drawPixmap(zone.topLeft(), image);
}

void VueGrille::leaveEvent(QEvent *evenement)
{
    m_survol = {-1, -1};
    QTableView::leaveEvent(evenement);
}

void VueGrille::keyPressEvent(QKeyEvent *evenement)
{
    // The view never moves by itself: the controller moves the grid's current cell.
    evenement->accept();
    const int code = codeTouche(*evenement);
    const bool modificateurSeul = code >= 16 && code <= 18;
    if (code != 0 && !modificateurSeul)
        emit toucheEnfoncee(code, masqueTouches(*evenement));
    if (const int caractere = codeCaractere(*evenement))
        emit toucheCaractere(caractere);
}

} // namespace thermique::gui
