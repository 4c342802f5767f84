// Redrawing the whole drawing after an option that changes how the module's entities
// look, and repainting the view without taking the focus from the panel.
#pragma once

// Marks every chain and height mark of the working drawing changed, in model space and
// in the viewports of paper space. The mode clears a per-entity status first, so that the
// global switch rules again: 1 the sum (chains only), 2 the text background, 3 the
// alternative units; any other mode recomputes height marks from their reference points.
void DwgRegenSVdim(int mode);
// Updates the display and gives the activity back to the window that had it.
void DwgRefresh();
