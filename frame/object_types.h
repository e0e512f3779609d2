// The object types and identifiers that the plug-in contributes, each code once.
#pragma once

namespace velmora {

inline constexpr char kLibraryName[] = "Velmora";

inline constexpr char kEngineType[] = "O0402000";        // the salary extension: the engine
inline constexpr char kTarificationType[] = "O0402100";  // tarification
inline constexpr char kCategoryType[] = "O0402200";      // position categories
inline constexpr char kSettingsType[] = "O0402300";      // civil-servant settings

// What the records are called: also the keys of the icons, and what a new record tells as its OType.
inline constexpr char kCategoryRecord[] = "CategoryType";
inline constexpr char kSettingsRecord[] = "OfficeEmployeeSettings";
inline constexpr char kPreviewRecord[] = "OfficeEmployeePreview";

inline constexpr char kLayoutCode[] = "L04010021";
inline constexpr char kLayoutKey[] = "CSalaryExtraLayout";
inline constexpr char kGroupKey[] = "COfficeEmployees";

inline constexpr char kLayoutCaption[] = "Darbo užmokesčio išplėtimas";
inline constexpr char kEngineCaption[] = "Darbo užmokesčio išplėtimas";
inline constexpr char kTarificationCaption[] = "Tarifikacija";
inline constexpr char kCategoryCaption[] = "Pareigybių kategorijos";
inline constexpr char kSettingsCaption[] = "Valstybės tarnautojų nustatymai";
inline constexpr char kGroupCaption[] = "Valstybės tarnautojai";

}  // namespace velmora
