// Which family the labels and the praise words are drawn in.
#include "assets/fonts.h"

#include "assets/font_folders.h"
#include "render/canvas.h"

namespace {

const FontFace* g_labelFamily = nullptr;
const FontFace* g_praiseFamily = nullptr;

}  // namespace

const FontFace* LabelFamily() {
    if (!g_labelFamily) {
        g_labelFamily = RoundedFace(kRegularFontFile);
        if (!g_labelFamily) g_labelFamily = ChooseFallbackFamily(false);
    }
    return g_labelFamily;
}

const FontFace* PraiseFamily() {
    if (!g_praiseFamily) {
        g_praiseFamily = RoundedFace(kBlackFontFile);
        // An installed family stands in for the black face only if it is bold.
        if (!g_praiseFamily) g_praiseFamily = ChooseFallbackFamily(true);
    }
    return g_praiseFamily;
}

int32_t PathStyleFor(const FontFace* face) {
    if (!face || face == RoundedFace(kBlackFontFile)) return kFontRegular;
    return HasBoldFace(face) ? kFontBold : kFontRegular;
}

void ForgetFontChoice() {
    g_labelFamily = nullptr;
    g_praiseFamily = nullptr;
}
