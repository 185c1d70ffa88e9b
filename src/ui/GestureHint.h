// What the next click does, told from the procedures that the tool has put into the slots.
#pragma once

#include <QString>

/// Empty where the message of the tool says it all.
QString gestureHint();
