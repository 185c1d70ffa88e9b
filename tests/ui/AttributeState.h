// The current attributes as the process began with them, for tests that change them.
#pragma once

#include "edit/e_update.h"
#include "model/FigContext.h"

#include <algorithm>
#include <array>
#include <iterator>

/// To be made before anything changes; restore() brings all back.
class AttributeState {
public:
    void restore() const
    {
        for (const Kept<int>& kept : ints)
            *kept.attribute = kept.value;
        for (const Kept<float>& kept : floats)
            *kept.attribute = kept.value;
        use_abs_arrowvals = autoforwardarrow_mode = autobackwardarrow_mode = false;
        std::fill(std::begin(updatelist), std::end(updatelist), 1);
    }

private:
    template <typename Value> struct Kept {
        Kept(Value& kept) : attribute(&kept), value(kept) {}
        Value* attribute;
        Value value;
    };

    std::array<Kept<int>, 19> ints = {{cur_linewidth, cur_linestyle, cur_joinstyle, cur_capstyle,
                                       cur_depth, cur_boxtype, cur_boxradius, cur_numsides,
                                       cur_numcopies, cur_rotnangle, cur_fontsize, cur_textflags,
                                       cur_textjust, cur_ps_font, cur_latex_font, cur_arctype,
                                       cur_arrowtype, cur_farrowtype, cur_barrowtype}};
    std::array<Kept<float>, 10> floats = {{cur_styleval, cur_textangle, cur_ellipseangle,
                                           cur_tangnormlen, cur_arrowthick, cur_arrowwidth,
                                           cur_arrowheight, cur_arrow_multthick,
                                           cur_arrow_multwidth, cur_arrow_multheight}};
};
