// The current attributes, and which of them updates take over, as a fresh process has them.
#pragma once

#include "edit/e_update.h"
#include "model/FigContext.h"

#include <algorithm>
#include <iterator>

inline void resetCurrentAttributes()
{
    cur_linewidth = 1;
    cur_linestyle = cur_joinstyle = cur_capstyle = 0;
    cur_styleval = 4.0f;
    cur_depth = 50;
    cur_boxtype = T_BOX;
    cur_boxradius = 7;
    cur_numsides = 6;
    cur_fontsize = 12;
    cur_textflags = 4;
    cur_textjust = cur_ps_font = cur_latex_font = 0;
    cur_textangle = cur_ellipseangle = cur_angle = 0;
    cur_arctype = cur_arrowtype = cur_farrowtype = cur_barrowtype = 0;
    cur_arrowthick = cur_arrow_multthick = 1;
    cur_arrowwidth = cur_arrow_multwidth = 60;
    cur_arrowheight = cur_arrow_multheight = 120;
    use_abs_arrowvals = autoforwardarrow_mode = autobackwardarrow_mode = false;
    cur_numcopies = 1;
    cur_rotnangle = 90;
    cur_tangnormlen = 1.0f;
    cur_halign = cur_valign = 0;
    std::fill(std::begin(updatelist), std::end(updatelist), 1);
}
