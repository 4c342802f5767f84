// The module's resource script: it parses, and every string and menu item the
// module's code and users rely on is there with its exact text.
#include "resources/Resources.h"

#include "host/res/ResModule.h"
#include "host/win/WinMenu.h"
#include "host/win/wsprintf.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

struct StringText {
    UINT id;
    const wchar_t* text;
};

const StringText kStrings[] = {
    {100, L"Ja"},
    {101, L"Nein"},
    {7043, L"\nMaßketten wählen..."},
    {7044, L"automatisches Übernehmen von Schnitt-HK-Werten\nwird nach dem Speichern der Zeichnung möglich!"},
    {7046, L"ft"},
    {7047, L"Zoll"},
    {7052, L"0'-"},
    {7053, L"Links"},
    {7054, L"Rechts"},
    {7065, L"\nWählen..."},
    {7066, L"Keine Auswahl"},
    {7067, L"Lin.Bem."},
    {7068, L"HK"},
    {7069, L"AutoCAD Maßketten"},
    {7070, L"Texten"},
    {7071, L"Allgemein"},
    {7072, L"Text"},
    {7073, L"Linien und Symbole"},
    {7074, L"Einheiten"},
    {7075, L"Ein"},
    {7076, L"-"},
    {7077, L"Aus"},
    {7078, L"Über"},
    {7079, L"Unter"},
    {7080, L"Kein"},
    {7081, L"Schräg"},
    {7082, L"Punkt"},
    {7083, L"Kreis"},
    {7084, L"Pfeil"},
    {7085, L"Kreuz"},
    {7086, L"Grundriss-HK - Typ 2"},
    {7087, L"Grundriss-HK - Typ 1"},
    {7088, L"Fertigmaß - Spitze unten"},
    {7089, L"Rohbaumaß - Spitze unten"},
    {7090, L"Fertigmaß - Spitze oben"},
    {7091, L"Rohbaumaß - Spitze oben"},
    {7094, L"Hilflin. über Bem-Linien hinaus erweitern"},
    {7095, L"Maßlinien-Erweiterung"},
    {7098, L"Entfernen Remove"},
    {7099, L"%d Eintragungen wurden ersetzt."},
    {7101, L"Beschriftungsmaßstab"},
    {7102, L"BMaß"},
    {7103, L"Editierbare Parameter"},
    {7104, L"HK: Vortext/Nachtext"},
    {7105, L"LM: Vortext/Nachtext/Zusatz-Maßtext"},
    {7106, L"Alles"},
    {7107, L"Wollen Sie die Operation wirklich abbrechen?"},
    {7108, L"Keine Vorkommen gefunden"},
    {7109, L"Geänderte Texte = %d  \nGeänderte Bemaßungen = %d \nGeänderte Zeichnungen = %d \nGescannte Zeichnungen = %d"},
    {7110, L"Gefundene Zeichnungen: %d\nWollen Sie fortsetzen?"},
    {7111, L"Keine Datei gefunden..."},
    {32800, L"Maßzahl ändern"},
    {32804, L"Maßketten zum Aktualisieren wählen..."},
    {32810, L"Ini Datei |*.INI|"},
    {32811, L"<neu>"},
    {32812, L"\n\n   Maßzahl(en) wählen/entfernen:"},
    {32825, L"\n\n   Abschnitt entfernen/zurück:"},
    {32832, L" < AKTUELL >"},
    {32852, L"Größe des Schnitt-HK-Symbols"},
    {32853, L"Größe des Symbols"},
    {32854, L"Durchmesser des Grundriß-HK Symbols"},
    {32855, L"Über Hilfslinien hinaus verlängern"},
    {32868, L"Lineare Bemaßungen"},
    {32869, L"Höhenkoten"},
    {32873, L"<Unbekannt>"},
    {32880, L"Text"},
    {32892, L"Vorgabeposition der Maßzahlen"},
    {32893, L"Maßzahlen zentrieren"},
    {32895, L"<maximal>"},
    {32896, L"<keine>"},
    {32897, L"<beibehalten>"},
    {32899, L"Sorvan Maßketten zum Aktualisieren wählen..."},
    {32901, L"AutoCAD Maßketten -> Sorvane Maßketten  wählen..."},
    {32903, L"Objekt auf gesperrtem Layer, Bearbeitung nicht möglich!"},
    {32909, L"Textstil"},
    {32910, L"Maßlinien-Versatz"},
    {32911, L"Hilfslinien-Länge LINEAR"},
    {32912, L"Hilfslinien Länge HK"},
    {32927, L"Befehl %s is aktiv!\nBitte beenden Sie zuerst diesen Befehl."},
    {32928, L"Globale Einstellungen: %s"},
    {32929, L"Lage"},
    {32930, L"Verschieben"},
    {32938, L"Abstand der Maßlinie vom Objekt"},
    {32939, L"m/cm (10 m)"},
    {32940, L"Reduzierte Größe [%]"},
    {32941, L"Vorz. ±,+ unterdrücken"},
    {32947, L"Layer \"0\" ist verboten."},
    {32952, L"<nach dem Maßstab>"},
    {32953, L"Gesamtanzahl von HK-Objekten = %d \nGeändert = %d   \n Anzahl von gelöschten HK-Bezugsebenen = %d "},
};

// Strings whose text is ours: they must exist, whatever they say.
const UINT kStringsWithOwnText[] = {7045, 7055, 7056, 7060, 7061, 7062, 32801, 32824, 32826};

struct MenuText {
    UINT menu;
    UINT id;
    const wchar_t* popup;  // the sub-menu holding the item; null when it sits in the menu itself
    const wchar_t* text;
};

const MenuText kMenuItems[] = {
    // Linear chain
    {130, 32792, nullptr, L"Maßzahlen zentrieren"},
    {130, 32891, nullptr, L"Automatische Maßtextposition"},
    {130, 32794, nullptr, L"Abschnitt entfernen"},
    {130, 32812, nullptr, L"Abschnitt zeigen"},
    {130, 32795, nullptr, L"Maßketten verbinden..."},
    {130, 32799, nullptr, L"Eigenschaften holen..."},
    {130, 32797, nullptr, L"Maßpunkt(e) entfernen"},
    {130, 32798, nullptr, L"Maßpunkt(e) hinzufügen"},
    {130, 32802, nullptr, L"Maßzahl ändern"},
    {130, 32803, nullptr, L"Maßzahländerung zurück"},
    {130, 32801, nullptr, L"Alle Maßzahländerungen zurück"},
    {130, 32806, nullptr, L"Maßzahlen positionieren..."},
    {130, 32813, L"Zusatz-Maßtext", L"eingeben"},
    {130, 32814, L"Zusatz-Maßtext", L"entfernen"},
    {130, 32880, nullptr, L"Summe der Maße darstellen"},
    {130, 32886, nullptr, L"Maßtext-Hintergrund"},
    {130, 32893, nullptr, L"Alternativeinheiten"},
    {130, 32881, L"Maßketten-Beschriftung", L"eingeben"},
    {130, 32885, L"Maßketten-Beschriftung", L"entfernen"},
    {130, 32882, L"Vor- und Nachtext", L"eingeben"},
    {130, 32884, L"Vor- und Nachtext", L"entfernen"},
    {130, 32883, L"Hilfslinie", L"Richtung..."},
    {130, 32852, L"Hilfslinie", L"einblenden"},
    {130, 32853, L"Hilfslinie", L"ausblenden"},
    {130, 32854, L"Führungslinie", L"zeichnen"},
    {130, 32855, L"Führungslinie", L"löschen"},
    {130, 32856, L"Symbol", L"Punkt"},
    {130, 32857, L"Symbol", L"Schräg"},
    {130, 32858, L"Symbol", L"Kreis"},
    {130, 32859, L"Symbol", L"Pfeil"},
    {130, 32860, L"Symbol", L"Kreuz"},
    {130, 32861, L"Symbol", L"KEIN"},
    {130, 32887, nullptr, L"Eigenschaften..."},
    {130, 32800, nullptr, L"Akt.Format -> Vorgabe"},
    // Arc chain
    {134, 32844, nullptr, L"Bogen zu verknüpfen wählen"},
    {134, 32886, nullptr, L"Maßtext-Hintergrund"},
    {134, 32792, nullptr, L"Maßzahlen zentrieren"},
    {134, 32891, nullptr, L"Automatische Maßtextposition"},
    {134, 32798, nullptr, L"Maßpunkt(e) hinzufügen"},
    {134, 32887, nullptr, L"Eigenschaften..."},
    {134, 32800, nullptr, L"Akt.Format -> Vorgabe"},
    // Height marks
    {131, 32836, L"HK hinzufügen", L"nach gewähltem HK-Symbol"},
    {131, 32835, L"HK hinzufügen", L"nach aktuellen Einstellungen"},
    {131, 32844, nullptr, L"HK von anderen Gruppen hinzufügen"},
    {131, 32822, nullptr, L"HK vertikal ausrichten "},
    {131, 32824, nullptr, L"HK nach einer Linie ausrichten "},
    {131, 32823, nullptr, L"Maßzahlen positionieren..."},
    {131, 32819, nullptr, L"HK ändern..."},
    {131, 32845, nullptr, L"Basiswerte der HK-Gruppe ändern..."},
    {131, 32886, nullptr, L"Maßtext-Hintergrund"},
    {131, 32799, nullptr, L"Eigenschaften holen..."},
    {131, 32800, nullptr, L"Akt.Format -> Vorgabe"},
    {131, 32820, nullptr, L"Alle HK auswählen"},
    {131, 32821, nullptr, L"Bezugsebene der HK-Gruppe auswählen"},
    {131, 32887, nullptr, L"Eigenschaften..."},
    {132, 32836, L"HK hinzufügen", L"nach gewähltem HK-Symbol"},
    {132, 32835, L"HK hinzufügen", L"nach aktuellen Einstellungen"},
    {132, 32823, nullptr, L"Maßzahlen positionieren..."},
    {132, 32819, nullptr, L"HK ändern..."},
    {132, 32886, nullptr, L"Maßtext-Hintergrund"},
    {132, 32799, nullptr, L"Eigenschaften holen..."},
    {132, 32800, nullptr, L"Akt.Format -> Vorgabe"},
    {132, 32887, nullptr, L"Eigenschaften..."},
    {133, 32818, nullptr, L"HK hinzufügen"},
    {133, 32844, nullptr, L"HK von anderen Gruppen hinzufügen"},
    {133, 32831, nullptr, L"Basiswerte der Gruppe ändern..."},
    {133, 32825, nullptr, L"Bezugsebene fixiert"},
    {133, 32800, nullptr, L"Akt.Format -> Vorgabe"},
    {133, 32820, nullptr, L"Alle HK auswählen"},
    {133, 32887, nullptr, L"Eigenschaften..."},
    // Tagged native objects
    {137, 32887, nullptr, L"Eigenschaften..."},
    {137, 32800, nullptr, L"Akt.Format -> Vorgabe"},
    {138, 32802, nullptr, L"Maßzahl ändern..."},
    {138, 32852, L"Hilfslinie", L"einblenden"},
    {138, 32853, L"Hilfslinie", L"ausblenden"},
    {138, 32854, L"Führungslinie", L"zeichnen"},
    {138, 32855, L"Führungslinie", L"löschen"},
    {138, 32856, L"Symbol", L"Punkt"},
    {138, 32857, L"Symbol", L"Schräg"},
    {138, 32858, L"Symbol", L"Kreis"},
    {138, 32859, L"Symbol", L"Pfeil"},
    {138, 32860, L"Symbol", L"Quadrat"},
    {138, 32861, L"Symbol", L"KEIN"},
    {138, 32887, nullptr, L"Eigenschaften..."},
    {138, 32800, nullptr, L"Akt.Format -> Vorgabe"},
    {139, 32802, nullptr, L"Maßzahl ändern..."},
    {139, 32854, L"Führungslinie", L"zeichnen"},
    {139, 32855, L"Führungslinie", L"löschen"},
    {139, 32860, L"Symbol", L"Quadrat"},
    {139, 32887, nullptr, L"Eigenschaften..."},
    {139, 32800, nullptr, L"Akt.Format -> Vorgabe"},
    // The panel's actions
    {135, 32788, L"Extras", L"Globale Einstellungen..."},
    {135, 32792, L"Bearb.", L"Maßzahlen zentrieren"},
    {135, 32891, L"Bearb.", L"Automatische Maßtextposition"},
    {135, 32805, L"Bearb.", L"Maßzahlen am BKS ausrichten"},
    {135, 32837, nullptr, L"Markieren"},
    {135, 32838, nullptr, L"Alle Marken entfernen"},
    {135, 32811, L"Bearb.", L"Maßzahländerungen zurück"},
    {135, 32810, L"Bearb.", L"Maßlinien neu verteilen"},
    {135, 32807, L"Bearb.", L"Maßpunkt(e) entfernen"},
    {135, 32854, nullptr, L"zeichnen"},
    {135, 32852, nullptr, L"löschen"},
    {135, 32889, nullptr, L"darstellen"},
    {135, 32890, nullptr, L"entfernen"},
    {135, 32853, L"Extras", L"HK Checker..."},
    {135, 32897, L"Extras", L"HK-Links zwischen DWG's aktualisieren"},
    {135, 32830, L"Konvertieren", L"sorvane-Formatierung der AutoCAD-Bemaßungen"},
    {135, 32833, L"Konvertieren", L"AutoCAD-Lineare Bemaßungen -> sorvane-Maßketten "},
    {135, 32832, L"Konvertieren", L"sorvane-Bemaßungen -> AutoCAD-Bemaßungen"},
    {135, 32828, L"Konvertieren", L"AutoCAD-Texte -> sorvane-Texte"},
    {135, 32829, L"Konvertieren", L"sorvane-Texte -> AutoCAD-Texte"},
};

// The height-mark menus offer exactly these commands, in this order.
const std::pair<UINT, std::vector<UINT>> kCommandOrder[] = {
    {131, {32836, 32835, 32844, 32822, 32824, 32823, 32819, 32845, 32886, 32799, 32800, 32820, 32821, 32887}},
    {132, {32836, 32835, 32823, 32819, 32886, 32799, 32800, 32887}},
    {133, {32818, 32844, 32831, 32825, 32800, 32820, 32887}},
};

struct Found {
    bool bFound = false;
    std::wstring popup;
    std::wstring text;
};

// Depth first; popup is the sub-menu directly holding the item.
void FindItem(HMENU h, UINT id, const std::wstring& popup, bool bTop, Found& out)
{
    for (const svwin::MenuItemInfo& item : svwin::MenuItems(h)) {
        if (out.bFound)
            return;
        if (item.subMenu)
            FindItem(item.subMenu, id, item.text, false, out);
        else if (!item.separator && item.id == id)
            out = {true, bTop ? std::wstring() : popup, item.text};
    }
}

void CollectCommands(HMENU h, std::vector<UINT>& ids)
{
    for (const svwin::MenuItemInfo& item : svwin::MenuItems(h)) {
        if (item.subMenu)
            CollectCommands(item.subMenu, ids);
        else if (!item.separator)
            ids.push_back(item.id);
    }
}

class SorvaneResources : public testing::Test {
protected:
    void SetUp() override
    {
        CString strError;
        m_h = LoadModuleResources(&strError);
        ASSERT_NE(m_h, nullptr) << strError;
    }
    void TearDown() override { svres::FreeResourceModule(m_h); }

    // The menu as the context menu shows it: the first sub-menu. Menus of more
    // than one popup (the panel's) are searched whole.
    HMENU Shown(HMENU bar, UINT menu) const { return menu == 135 ? bar : GetSubMenu(bar, 0); }

    HINSTANCE m_h = nullptr;
};

TEST_F(SorvaneResources, StringsHaveTheirExactText)
{
    for (const StringText& s : kStrings) {
        SCOPED_TRACE(s.id);
        wchar_t buf[512];
        ASSERT_GT(LoadStringW(m_h, s.id, buf, 512), 0);
        EXPECT_EQ(std::wstring(buf), s.text);
    }
    for (UINT id : kStringsWithOwnText) {
        wchar_t buf[512];
        EXPECT_GT(LoadStringW(m_h, id, buf, 512), 0) << id;
    }
}

TEST_F(SorvaneResources, MenuItemsHaveTheirExactText)
{
    for (const MenuText& m : kMenuItems) {
        SCOPED_TRACE(testing::Message() << "menu " << m.menu << " item " << m.id);
        HMENU bar = LoadMenuW(m_h, MAKEINTRESOURCEW(m.menu));
        ASSERT_NE(bar, nullptr);
        HMENU shown = Shown(bar, m.menu);
        ASSERT_NE(shown, nullptr);
        Found f;
        FindItem(shown, m.id, std::wstring(), true, f);
        EXPECT_TRUE(f.bFound);
        EXPECT_EQ(f.text, m.text);
        if (m.popup) {
            EXPECT_EQ(f.popup, m.popup);
        } else if (m.menu != 135) {
            EXPECT_EQ(f.popup, L"");
        }
        DestroyMenu(bar);
    }
}

TEST_F(SorvaneResources, HeightMarkMenusOfferTheirCommandsInOrder)
{
    for (const auto& [menu, expected] : kCommandOrder) {
        SCOPED_TRACE(menu);
        HMENU bar = LoadMenuW(m_h, MAKEINTRESOURCEW(menu));
        ASSERT_NE(bar, nullptr);
        std::vector<UINT> ids;
        CollectCommands(GetSubMenu(bar, 0), ids);
        EXPECT_EQ(ids, expected);
        DestroyMenu(bar);
    }
}

TEST_F(SorvaneResources, EveryContextMenuHasOnePopupAndTheHeaderAgrees)
{
    const auto script = svres::GetResourceScript(m_h);
    ASSERT_NE(script, nullptr);
    for (UINT menu : {130u, 131u, 132u, 133u, 134u, 137u, 138u, 139u, 32102u}) {
        SCOPED_TRACE(menu);
        const svres::ResMenu* m = script->FindMenu(svres::ResName::Number(menu));
        ASSERT_NE(m, nullptr);
        ASSERT_EQ(m->items.size(), 1u);
        EXPECT_TRUE(m->items[0].IsPopup());
    }
    EXPECT_EQ(script->defines.at(L"IDR_MENU_TAGGED_RADIAL"), 139);
    EXPECT_EQ(script->defines.at(L"IDS_COMMAND_ACTIVE"), 32927);
}

} // namespace
