#include "text_catalogue.h"

#include <algorithm>
#include <cctype>

namespace mediaexport {
namespace {

constexpr const char* kLanguages[] = {"en", "de", "fr", "ja"};

struct Entry {
    const char* key;
    const char* texts[4];  // in the order of kLanguages
};

constexpr Entry kEntries[] = {
    {"PageSize", {"Media Size", "Papierformat", "Format du papier", "用紙サイズ"}},
    {"PageRegion", {"Media Size", "Papierformat", "Format du papier", "用紙サイズ"}},
    {"Borderless", {"Borderless", "Randlos", "Sans marges", "フチなし"}},
    {"MediaType", {"Media Type", "Papiersorte", "Type de papier", "用紙種類"}},
    {"ColorModel", {"Color Mode", "Farbmodus", "Mode couleur", "カラーモード"}},
    {"ColorModel.RGB", {"Color", "Farbe", "Couleur", "カラー"}},
    {"ColorModel.Gray", {"Grayscale", "Graustufen", "Niveaux de gris", "グレースケール"}},
    {"PrintPurpose", {"Print Purpose", "Druckzweck", "Usage d'impression", "印刷目的"}},
    {"PrintPurpose.photo", {"Photo", "Foto", "Photo", "写真"}},
    {"PrintPurpose.proof", {"Proof", "Proof", "Épreuve", "校正"}},
    {"PrintPurpose.cad", {"CAD", "CAD", "CAO", "CAD"}},
    {"PrintQualityLevel", {"Print Quality", "Druckqualität", "Qualité d'impression", "印刷品質"}},
    {"PrintQualityLevel.1", {"Level 1", "Stufe 1", "Niveau 1", "レベル1"}},
    {"PrintQualityLevel.2", {"Level 2", "Stufe 2", "Niveau 2", "レベル2"}},
    {"PrintQualityLevel.3", {"Level 3", "Stufe 3", "Niveau 3", "レベル3"}},
    {"PrintQualityLevel.4", {"Level 4", "Stufe 4", "Niveau 4", "レベル4"}},
    {"PrintQualityLevel.5", {"Level 5", "Stufe 5", "Niveau 5", "レベル5"}},
    {"InputSlot", {"Paper Source", "Papierquelle", "Source du papier", "給紙方法"}},
    {"InputSlot.AUTO", {"Automatic", "Automatisch", "Automatique", "自動"}},
    {"InputSlot.MANUAL03", {"Rear Manual Feed", "Manuelle Zufuhr hinten", "Alimentation manuelle arrière",
                            "後トレイ手差し"}},
    {"InputSlot.asf", {"Sheet Feeder", "Blatteinzug", "Bac feuille à feuille", "オートシートフィーダー"}},
    {"InputSlot.manual", {"Manual Feed", "Manuelle Zufuhr", "Alimentation manuelle", "手差し"}},
    {"InputSlot.DISCTRAY", {"Disc Tray", "Disc-Fach", "Bac CD/DVD", "ディスクトレイ"}},
    {"Cartridge", {"Ink Cartridge", "Tintenpatrone", "Cartouche d'encre", "インクカートリッジ"}},
    {"Cartridge.color", {"Color", "Farbe", "Couleur", "カラー"}},
    {"Cartridge.bk", {"Black", "Schwarz", "Noir", "ブラック"}},
    {"Cartridge.photo", {"Photo", "Foto", "Photo", "フォト"}},
    {"Cartridge.bkcolor", {"Black and Color", "Schwarz und Farbe", "Noir et couleur", "ブラックとカラー"}},
    {"Cartridge.photocolor", {"Photo and Color", "Foto und Farbe", "Photo et couleur", "フォトとカラー"}},
    {"Cartridge.auto", {"Automatic", "Automatisch", "Automatique", "自動"}},
    {"Duplex", {"2-Sided Printing", "Beidseitiger Druck", "Impression recto verso", "両面印刷"}},
    {"Duplex.None", {"Off", "Aus", "Désactivé", "しない"}},
    {"Duplex.DuplexNoTumble", {"Long-Edge Binding", "Bindung an der langen Kante", "Reliure bord long",
                               "長辺とじ"}},
    {"Duplex.DuplexTumble", {"Short-Edge Binding", "Bindung an der kurzen Kante", "Reliure bord court",
                             "短辺とじ"}},
};

int LanguageIndex(const std::string& language) {
    for (int i = 0; i < 4; ++i) {
        if (language == kLanguages[i]) return i;
    }
    return -1;
}

bool TwoLetters(const std::string& language) {
    return language.size() == 2 && std::islower(static_cast<unsigned char>(language[0])) &&
           std::islower(static_cast<unsigned char>(language[1]));
}

}  // namespace

const char* FixedText(const std::string& key, const std::string& language) {
    const int index = std::max(LanguageIndex(language), 0);
    for (const Entry& entry : kEntries) {
        if (key == entry.key) return entry.texts[index];
    }
    return nullptr;
}

bool CatalogueHas(const std::string& language) { return LanguageIndex(language) >= 0; }

std::vector<std::string> ExportLanguages(const PrinterModel& model, const std::string& base) {
    std::vector<std::string> languages{base};
    for (const Medium& medium : model.media) {
        for (const MediumName& name : medium.names) {
            if (TwoLetters(name.language) &&
                std::find(languages.begin(), languages.end(), name.language) == languages.end()) {
                languages.push_back(name.language);
            }
        }
    }
    return languages;
}

std::string MediumText(const Medium& medium, const std::string& language, const std::string& base,
                       bool* missing) {
    const auto in = [&](const std::string& wanted) -> const MediumName* {
        for (const MediumName& name : medium.names) {
            if (name.language == wanted && !name.text.empty()) return &name;
        }
        return nullptr;
    };
    *missing = false;
    if (const MediumName* name = in(language)) return name->text;
    *missing = true;
    if (const MediumName* name = in(base)) return name->text;
    return medium.id;
}

}  // namespace mediaexport
