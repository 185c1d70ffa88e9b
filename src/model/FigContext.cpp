#include "model/FigContext.h"

#include "model/ObjectFunctions.h"
#include "model/preferences.h"
#include "model/shell.h"
#include "model/u_list.h"
#include "model/w_layers.h"
#include "render/colorFunctions.h"

#include <QSet>

#include <limits>

int cur_linewidth = 1;
int cur_linestyle = 0;
float cur_styleval = 4.0f;
int cur_joinstyle = 0;
int cur_capstyle = 0;
int cur_depth = 50;
int cur_boxtype = 2;
int cur_boxradius = 7;
int cur_numsides = 6;
int cur_numcopies = 1;
int cur_rotnangle = 90;
int cur_fontsize = 12;
int cur_textflags = 4;
float cur_textstep = 1.2f;
int cur_textjust = 0;
int cur_ps_font = 0;
int cur_latex_font = 0;
float cur_textangle = 0;
float cur_ellipseangle = 0;
float cur_angle = 0;
int cur_arctype = 0;
float cur_tangnormlen = 1.0f;
int cur_arrowtype = 0;
int cur_farrowtype = 0;
int cur_barrowtype = 0;
float cur_arrowthick = 1;
float cur_arrowwidth = 60;
float cur_arrowheight = 120;
float cur_arrow_multthick = 1;
float cur_arrow_multwidth = 60;
float cur_arrow_multheight = 120;
bool use_abs_arrowvals = false;
bool autoforwardarrow_mode = false;
bool autobackwardarrow_mode = false;
int cur_halign = 0;
int cur_valign = 0;

namespace {

unsigned long nextDocumentNumber()
{
    static unsigned long number = 0;
    return ++number;
}

constexpr int FIRST_USER_COLOR = 32;
constexpr int MAX_USER_COLORS = 65534;
constexpr float FIG_DPI = 80.0f;
constexpr float FONT_DPI = 72.0f;

void collectObjects(const FigObjectList& list, QSet<FigObject*>* found)
{
    for (FigObject* object : list) {
        found->insert(object);
        if (object->type == O_COMPOUND)
            collectObjects(*static_cast<FigCompound*>(object)->objects, found);
    }
}

/// Frees the list of a gesture and those of its objects that no list of the tree owns.
void freeMovedObjects(FigObjectList* moved, const FigObjectList& tree)
{
    if (!moved)
        return;
    QSet<FigObject*> owned;
    collectObjects(tree, &owned);
    for (FigObject* object : qAsConst(*moved))
        if (!owned.contains(object))
            delete object;
    delete moved;
}

/// Lowest key from 0 that is not in use.
int lowestFreeKey(const QMap<int, QColor>& colors)
{
    // Without gaps, the usual case, the size is the answer.
    if (colors.isEmpty() || (colors.firstKey() == 0 && colors.lastKey() == colors.size() - 1))
        return colors.size();
    int key = 0;
    for (auto color = colors.lowerBound(0); color != colors.end() && color.key() == key; ++color)
        ++key;
    return key;
}

unsigned* makeShades(const QColor& color)
{
    auto* shades = new unsigned[NUM_SHADES];
    create_shades(shades, _RGB{static_cast<unsigned short>(color.red()),
                               static_cast<unsigned short>(color.green()),
                               static_cast<unsigned short>(color.blue())});
    return shades;
}

} // namespace

CFigContext::CFigContext() : CFigContext(nullptr) {}

CFigContext::CFigContext(QTChildFrm* window)
    : documentNumber(nextDocumentNumber()), chFrm(window), undoQueue(this)
{
    setDefaults();
    setPixPerInch();
    initMembers();
}

// Actions may hold objects that the tree does not own, so the queue goes before the drawing,
// which is destroyed last of all, as a member.
CFigContext::~CFigContext()
{
    freeMovedObjects(movedObjects, drawing.objects);
    undoQueue.clearUndoList();
    undoQueue.clearRedoList();
    freeVanished();
    if (addPointActions)
        qDeleteAll(*addPointActions);
    delete addPointActions;
    delete reshapedObject;
    free_points(firstPoint);
    clearUserColors();
}

/// What an undo has brought back belongs to the drawing again.
void CFigContext::freeVanished()
{
    if (vanishedCompounds.isEmpty())
        return;
    QSet<FigObject*> owned;
    collectObjects(drawing.objects, &owned);
    while (!vanishedCompounds.isEmpty()) {
        FigCompound* compound = vanishedCompounds.takeFirst();
        compound->vanishedIn = nullptr;
        if (!owned.contains(compound))
            delete compound;
    }
}

void CFigContext::setDefaults()
{
    painter = nullptr;
    modified = false;
    landscape = false;
    paperSize = 13;
    flushLeft = true;
    multiplePage = false;
    magnification = 100.0f;
    dontHide1ptThickness = false;
    cur_pencolor = 0;
    cur_fillcolor = 7;
    cur_fillstyle = -1;
    transparentColor = -2;
    showPageBorders = true;
}

void CFigContext::initMembers()
{
    openCompoundObjects = nullptr;
    addPointActions = nullptr;
    movedObjects = nullptr;
    curObject = nullptr;
    reshapedObject = nullptr;
    newPath = nullptr;
    firstPoint = nullptr;
    lastPoint = nullptr;
    foundObject = nullptr;
    linkTargetOk = false;

    shiftX = shiftY = 0;
    zoom = 1.0f;
    savedShiftX = savedShiftY = 0;
    savedZoom = -1;

    gridOn = gridPreferences.gridOn;
    gridIndex = gridPreferences.gridIndex;
    magnetMode = gridPreferences.magnetMode;
    metric = gridPreferences.metric;

    layerMode = 10;
    reset_layers(this);
    reset_depths(this);
    clearallcounts(this);
    save_active_layers(this);
    save_depths(this);
    save_counts(this);
    nextId = 0;
}

QLinkedList<FigObject*>* CFigContext::getWorkingRoot()
{
    return openCompoundObjects ? openCompoundObjects : &drawing.objects;
}

void CFigContext::keepVanished(FigCompound* compound)
{
    if (compound->vanishedIn)
        return;
    vanishedCompounds.append(compound);
    compound->vanishedIn = &vanishedCompounds;
}

void CFigContext::clearObjects()
{
    while (!drawing.objects.isEmpty())
        drawing.objects.removeFirst();
}

FigObject* CFigContext::getCurObject()
{
    return movedObjects && movedObjects->contains(curObject) ? nullptr : curObject;
}

void CFigContext::setPainter(QPainter* target)
{
    painter = target;
}

bool CFigContext::getDontHide1ptThickness()
{
    return dontHide1ptThickness;
}

void CFigContext::setDontHide1ptThickness(bool on)
{
    dontHide1ptThickness = on;
}

long CFigContext::getNextId()
{
    // A file may give an object the greatest number there is; counting on would overflow.
    if (nextId < std::numeric_limits<long>::max())
        ++nextId;
    return nextId;
}

void CFigContext::setPixPerInch()
{
    switch (gridPreferences.dpiAtZoom100) {
    case 1:
        shell_window_dpi(chFrm, &ppiX, &ppiY);
        break;
    case 2:
        ppiX = ppiY = FONT_DPI;
        break;
    default:
        ppiX = ppiY = FIG_DPI;
    }
}

void CFigContext::setModifiedflag()
{
    modified = true;
    if (chFrm)
        shell_set_window_modified(chFrm, true);
}

void CFigContext::resetModifiedflag()
{
    modified = false;
    if (chFrm)
        shell_set_window_modified(chFrm, false);
}

void CFigContext::saveZoomAndShift()
{
    savedZoom = zoom;
    savedShiftX = shiftX;
    savedShiftY = shiftY;
}

void CFigContext::revertZoomAndShift()
{
    zoom = savedZoom;
    shiftX = savedShiftX;
    shiftY = savedShiftY;
}

bool CFigContext::isValidUserColorIndex(unsigned color)
{
    return userColors.contains(static_cast<int>(color - FIRST_USER_COLOR));
}

int CFigContext::addUserColor(QColor color)
{
    if (!color.isValid())
        return -1;
    const int key = lowestFreeKey(userColors);
    if (key >= MAX_USER_COLORS)
        return MAX_USER_COLORS;
    userColors.insert(key, color);
    // A deleted colour leaves its shades behind; the key's new owner replaces them.
    delete[] userColorShades.value(key, nullptr);
    userColorShades.insert(key, makeShades(color));
    return key;
}

void CFigContext::clearUserColors()
{
    for (unsigned* shades : qAsConst(userColorShades))
        delete[] shades;
    userColorShades.clear();
    userColors.clear();
}
