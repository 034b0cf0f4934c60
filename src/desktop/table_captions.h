#pragma once

#include <QString>

// What the menus of all tables call their commands.
namespace cu::desktop::captions {

inline constexpr char16_t kAscending[] = u"Ordine crescente";
inline constexpr char16_t kDescending[] = u"Ordine decrescente";
inline constexpr char16_t kFirstOrder[] = u"Ordine di partenza";
inline constexpr char16_t kHideColumn[] = u"Nascondi questa colonna";
inline constexpr char16_t kColumns[] = u"Colonne";
inline constexpr char16_t kFirstColumns[] = u"Larghezze e ordine originali";
inline constexpr char16_t kCopy[] = u"Copia le righe evidenziate";
inline constexpr char16_t kCopyWithHeadings[] = u"Copia le righe evidenziate con le intestazioni";
inline constexpr char16_t kExport[] = u"Esporta come tabella…";
inline constexpr char16_t kExportTitle[] = u"Esporta come tabella";
inline constexpr char16_t kExportKinds[] = u"Foglio elettronico (*.xlsx);;Tabella CSV (*.csv)";

inline QString caption(const char16_t* text) { return QString::fromUtf16(text); }

}  // namespace cu::desktop::captions
