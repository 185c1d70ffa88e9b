// Stands in for the windows where the engine is linked alone: records what they would show and
// answers questions as told.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>

class CFigContext;
class FigObject;

struct RecordingShell {
    QStringList messages; ///< status lines in the order in which they were posted
    QStringList boxes;    ///< "title: text" of each message box and question
    QStringList logLines;
    bool answer = false; ///< given to the next questions
    CFigContext* activeContext = nullptr;
    int layerPanelUpdates = 0;
    int viewportWidth = 0;
    int viewportHeight = 0;
    float dpiX = 80.0f;
    float dpiY = 80.0f;
    QStringList redraws; ///< "canvas" or "depth N", in the order in which they were asked for
    QStringList panels;  ///< what the panels were told: "command 6", "attributes 2", "comment 1"...
    QString enteredText; ///< what the next text dialog gives back, if answer is true
    // What a test does in place of the windows; without these it is recorded only.
    std::function<void(int)> onSwitchCommand;
    std::function<void(CFigContext*, FigObject*)> onAttributesBar;

    void clear();
};

extern RecordingShell recordingShell;
