// Alignment of the tagged objects.
#pragma once

class CFigContext;

/// Moves each tagged object of the working root that is shown so that edges or centres of the
/// painted boxes meet, as cur_halign and cur_valign say: with those of the current object, or
/// without one with those of all tagged objects together. One undo step; none without an object to
/// move.
void align_tagged_objects(CFigContext* ctx);
