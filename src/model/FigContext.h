// One document: its figure, view, layers, depth bookkeeping, user colours and undo queue.
// Every engine function takes it first. A context without a window serves off-screen work.
#pragma once

#include "edit/u_undo.h"
#include "model/FigObjects.h"

#include <QColor>
#include <QHash>
#include <QList>
#include <QMap>

class QPainter;
class QTChildFrm;

/// Per depth: objects of the figure by type, then those the last redraw walked over.
struct DepthCounts {
    int arcs, lines, ellipses, splines, texts;
    int drawnArcs, drawnLines, drawnEllipses, drawnSplines, drawnTexts;
};

constexpr int MAX_DEPTH = 999;
constexpr int NUM_DEPTHS = MAX_DEPTH + 1;

/// Where an object lies with regard to the open compound.
enum class OpenPlace { Unknown, Inside, Outside };

class CFigContext {
public:
    CFigContext();
    explicit CFigContext(QTChildFrm* window);
    CFigContext(const CFigContext&) = delete;
    CFigContext& operator=(const CFigContext&) = delete;
    virtual ~CFigContext();

    const unsigned long documentNumber; ///< of this context in the process; no number comes twice
    QString filename;                   ///< native path of the last file read
    QTChildFrm* chFrm;                  ///< owner, or null
    QPainter* painter; ///< where all drawing goes; null means no drawing; not owned
    FigDrawing drawing;
    QMap<int, QColor> userColors;                 ///< key is the colour number minus 32
    QHash<int, unsigned*> userColorShades;        ///< 41 shades each; owned, made with new[]
    QLinkedList<FigObject*>* openCompoundObjects; ///< list of the open compound; not owned
    /// Of the object that is being drawn. A redraw knows it from its way through the tree; where it
    /// is unknown, whoever asks has to search.
    OpenPlace drawnPlace = OpenPlace::Unknown;
    /// Compounds that vanished because they were closed without members. Actions may still work in
    /// their lists, or bring them back; those that are out of the drawing die with the document,
    /// after the undo queue.
    QLinkedList<FigCompound*> vanishedCompounds;
    bool modified;
    UndoQueue undoQueue;
    QList<ActionItem*>* addPointActions;
    QLinkedList<FigObject*>* movedObjects;
    FigObject* curObject;
    FigObject* reshapedObject;
    FigObject* newPath;
    FigPoint* firstPoint; ///< chain under construction
    FigPoint* lastPoint;
    FigObject* foundObject;
    int shiftX, shiftY; ///< scroll position, pixels
    float zoom;
    int savedShiftX, savedShiftY;
    float savedZoom; ///< -1: nothing stored
    bool gridOn;
    int gridIndex;
    int magnetMode;
    bool metric;
    float ppiX, ppiY; ///< pixels per inch at zoom 1
    bool landscape;
    int paperSize; ///< index into paper_sizes
    bool flushLeft;
    bool multiplePage;
    float magnification; ///< percent
    bool dontHide1ptThickness;
    int cur_pencolor, cur_fillcolor, cur_fillstyle;
    int transparentColor;
    bool showPageBorders;
    bool active_layers[NUM_DEPTHS];
    int layerMode; ///< look of inactive depths: 10, 11 grey, 12 not drawn
    bool saved_active_layers[NUM_DEPTHS];
    int object_depths[NUM_DEPTHS];
    int saved_depths[NUM_DEPTHS];
    int max_depth, min_depth;
    int saved_min_depth, saved_max_depth;
    bool linkTargetOk;
    long nextId; ///< last id given out
    DepthCounts counts[NUM_DEPTHS];
    DepthCounts saved_counts[NUM_DEPTHS];

    /// All run-time members to their start values, grid values from the preferences.
    void initMembers();
    /// List that edits work on: that of the open compound, else the drawing's own.
    QLinkedList<FigObject*>* getWorkingRoot();
    /// Takes a compound into vanishedCompounds. It leaves that list by itself if it is deleted.
    void keepVanished(FigCompound* compound);
    /// Empties the drawing's list without deleting what it holds.
    void clearObjects();
    /// The current object, for who changes it: null while a gesture moves it about, since the copy
    /// that a preview shows is not in the figure yet.
    FigObject* getCurObject();
    void setPainter(QPainter* target);
    bool getDontHide1ptThickness();
    void setDontHide1ptThickness(bool on);
    /// The next free id; the first is 1.
    long getNextId();
    /// Takes ppiX and ppiY from the preference "dpi at zoom 100%".
    void setPixPerInch();
    void setModifiedflag();
    void resetModifiedflag();
    void saveZoomAndShift();
    void revertZoomAndShift();
    /// Whether the number minus 32 is a key of userColors.
    bool isValidUserColorIndex(unsigned color);
    /// Adds a colour under the lowest free key and returns the key; -1 for an invalid colour,
    /// 65534 with nothing added when all keys are in use. Equal colours are not searched for.
    int addUserColor(QColor color);
    /// Removes all user colours with their shades.
    void clearUserColors();

private:
    void setDefaults();
    void freeVanished();
};

// Current attributes: what new objects take. Written by the panels, read by the tools.
extern int cur_linewidth;
extern int cur_linestyle;
extern float cur_styleval;
extern int cur_joinstyle;
extern int cur_capstyle;
extern int cur_depth;
extern int cur_boxtype;
extern int cur_boxradius;
extern int cur_numsides;
extern int cur_numcopies;
extern int cur_rotnangle;
extern int cur_fontsize;
extern int cur_textflags;
extern float cur_textstep;
extern int cur_textjust;
extern int cur_ps_font;
extern int cur_latex_font;
extern float cur_textangle;
extern float cur_ellipseangle;
extern float cur_angle;
extern int cur_arctype;
extern float cur_tangnormlen;
extern int cur_arrowtype, cur_farrowtype, cur_barrowtype;
extern float cur_arrowthick, cur_arrowwidth, cur_arrowheight;
extern float cur_arrow_multthick, cur_arrow_multwidth, cur_arrow_multheight;
extern bool use_abs_arrowvals;
extern bool autoforwardarrow_mode, autobackwardarrow_mode;
extern int cur_halign, cur_valign;
