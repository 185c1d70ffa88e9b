// Links for a whole list of objects.
#include "edit/actions.h"
#include "edit/e_links.h"

CreateSmartLinksForDrawingAction::CreateSmartLinksForDrawingAction(FigObjectList* list)
{
    workingList = list;
}

// A redo searches again and makes records of its own; those of the former run hang on no point.
bool CreateSmartLinksForDrawingAction::execute(CFigContext* ctx)
{
    qDeleteAll(newLinks);
    newLinks.clear();
    oldLinks.clear();
    getAllLinks(workingList, &oldLinks);
    removeAllLinks(workingList, true);
    createSmartLinks(ctx, workingList, workingList, &newLinks);
    return true;
}

// The new links once more by themselves: a compound that vanished meanwhile is not in the list.
bool CreateSmartLinksForDrawingAction::undo(CFigContext*)
{
    removeAllLinks(workingList, true);
    removeAllLinks(&newLinks, true);
    restoreLinks(&oldLinks);
    return true;
}

// Only what is on no point may be deleted: the old links while the new ones stand, or the reverse.
void CreateSmartLinksForDrawingAction::disposeAsUndo()
{
    qDeleteAll(oldLinks);
    oldLinks.clear();
}

void CreateSmartLinksForDrawingAction::disposeAsRedo()
{
    qDeleteAll(newLinks);
    newLinks.clear();
}
