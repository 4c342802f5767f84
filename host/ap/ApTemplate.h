// The built-in drawing template: what a new drawing starts with when no template file is
// named (metric, in metres, model space current).
#pragma once

class AcDbDatabase;

// Applies the template's settings to a database made with its default drawing.
void apApplyDefaultTemplate(AcDbDatabase* db);

// The units of the template: metres (INSUNITS 6).
constexpr int kApTemplateInsunits = 6;
