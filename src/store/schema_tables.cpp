#include <array>

#include "store/schema.h"

namespace store {
namespace {

/// Each table followed by its indexes, in the order of creation.
constexpr std::array<const char*, 70> statements{{
    "CREATE TABLE [Info] ([ID] COUNTER,[Version] TEXT(50),[DBPath] TEXT(255))",
    "CREATE UNIQUE INDEX [PrimaryKey] ON [Info] ([ID]) WITH PRIMARY",
    "CREATE TABLE [Sprache] ([UebersetzungVon] TEXT(255),[UebersetzungNach] TEXT(255),"
    "[Kurzbeschreibung] TEXT(255),[VerwendungAbkuerzungen] BIT,[khz11] BIT,[khz22] BIT,[khz44] BIT,"
    "[bit8] BIT,[bit16] BIT,[EinKanal] BIT,[ZweiKanal] BIT,[Audiopfad] TEXT(255),"
    "[Anwendungssprache] BIT,[Sortierreihenfolge] TEXT(150),[Lautschrift] TEXT(50),"
    "[SchriftVon] TEXT(50),[SchriftNach] TEXT(50),[BegriffPruefung] BIT,[ProjektTyp] SHORT,"
    "[LastReportTableUpdate] TEXT(50),[PictureAsURL] BIT,[ObjectAsAltText] BIT,[UseRelativPath] BIT,"
    "[UseWebsitePath] BIT,[UseAbsolutFilePath] BIT,[ShowURLSeparate] BIT,[ShowNewIcon] BIT,"
    "[NewIconPath] TEXT(250),[StyleSheetPath] TEXT(250),[XMLStyleSheetPath] TEXT(250),"
    "[SteuerzeichenFeld] TEXT(1),[SteuerzeichenSatz] TEXT(1),[EnumMeaning] BIT,"
    "[ShowMeaningsForEditing] BIT,[NewNumberOfDays] SHORT,[ShowRating] BIT,[Stil1] BIT,[Stil2] BIT,"
    "[Blog] BIT,[DateFormat] TEXT(100),[RightToLeftFrom] BIT,[RightToLeftTo] BIT,"
    "[LastDBSave] TEXT(50),[LastDBCompact] TEXT(50),[LautschriftZeichenIpaPhon] LONGTEXT,"
    "[LautschriftZeichenArialUnicode] LONGTEXT,[SchriftBemerkung] TEXT(50),[IgnoreAtSort] TEXT(50))",
    "CREATE TABLE [Sprachen] ([ID_Sprache] COUNTER,[Sprache] TEXT(255),[Flagge] TEXT(255))",
    "CREATE TABLE [Buchstaben] ([ID_Buchstabe] COUNTER,[Filterbuchstabe1] TEXT(1),"
    "[Filterbuchstabe2] TEXT(1),[Filterbuchstabe3] TEXT(1),[Filterbuchstabe4] TEXT(1),"
    "[Filterbuchstabe5] TEXT(1),[Filterbuchstabe6] TEXT(1))",
    "CREATE TABLE [Autor] ([ID_Autor] COUNTER,[Autorname] TEXT(255),[Copyright] TEXT(255),"
    "[AutorWebURL] TEXT(255),[AutorEMail] TEXT(255))",
    "CREATE UNIQUE INDEX [PrimaryKey] ON [Autor] ([ID_Autor]) WITH PRIMARY",
    "CREATE TABLE [ChangeHistory] ([ID_ChangeHistory] COUNTER,[ID_Woerterbuch] LONG,"
    "[DateLastChange] DATE)",
    "CREATE UNIQUE INDEX [PrimaryKey] ON [ChangeHistory] ([ID_ChangeHistory]) WITH PRIMARY",
    "CREATE TABLE [NewHistory] ([ID_NewHistory] COUNTER,[ID_Woerterbuch] LONG)",
    "CREATE UNIQUE INDEX [PrimaryKey] ON [NewHistory] ([ID_NewHistory]) WITH PRIMARY",
    "CREATE TABLE [StandardReports] ([ID_StandardReports] COUNTER,[Objekt] TEXT(50),"
    "[Eigenschaft] TEXT(50),[Eigenschaftswert] LONG)",
    "CREATE UNIQUE INDEX [PrimaryKey] ON [StandardReports] ([ID_StandardReports]) WITH PRIMARY",
    "CREATE TABLE [WKategorie] ([ID_WKategorie] COUNTER,[Kategorie] TEXT(50),[Abkuerzung] TEXT(15),"
    "[Symbol] TEXT(2),[AutoZuordnungZuBegriff] BIT,[AutoZuordnungZuWortbedeutung] BIT)",
    "CREATE UNIQUE INDEX [PrimaryKey] ON [WKategorie] ([ID_WKategorie]) WITH PRIMARY",
    "CREATE TABLE [WSachgebiet] ([ID_Sachgebiet] COUNTER,[Sachgebiet] TEXT(50),[Abkuerzung] TEXT(15),"
    "[Symbol] TEXT(2),[AutoZuordnungZuBegriff] BIT,[AutoZuordnungZuWortbedeutung] BIT)",
    "CREATE UNIQUE INDEX [PrimaryKey] ON [WSachgebiet] ([ID_Sachgebiet]) WITH PRIMARY",
    "CREATE TABLE [Woerterbuch] ([ID_Woerterbuch] COUNTER,[ID_Woerterbuch1] LONG,[Begriff] TEXT(250),"
    "[SortBegriff] TEXT(250),[PraefixBegriff] TEXT(3),[MetaSuche] LONGTEXT,[Ebene] SHORT,"
    "[Aussprache] TEXT(250),[Bemerkung] LONGTEXT,[Unterbegriff] BIT,[Klang] TEXT(50),"
    "[Prioritaet] SHORT,[Bild] TEXT(50),[DateTimeStamp] DATE,[DatabaseName] LONGTEXT,"
    "[InBearbeitung] BIT,[DateTimeStampLastChange] TEXT(50))",
    "CREATE INDEX [Begriff] ON [Woerterbuch] ([Begriff])",
    "CREATE INDEX [SortBegriff] ON [Woerterbuch] ([SortBegriff])",
    "CREATE INDEX [ID_Woerterbuch1] ON [Woerterbuch] ([ID_Woerterbuch1])",
    "CREATE UNIQUE INDEX [ID_Woerterbuch] ON [Woerterbuch] ([ID_Woerterbuch])",
    "CREATE UNIQUE INDEX [PrimaryKey] ON [Woerterbuch] ([ID_Woerterbuch]) WITH PRIMARY",
    "CREATE INDEX [DateTimeStamp] ON [Woerterbuch] ([DateTimeStamp])",
    "CREATE TABLE [Wortbedeutung] ([ID_Wortbedeutung] COUNTER,[ID_Woerterbuch] LONG,"
    "[Wortbedeutung] TEXT(250),[DatabaseName] LONGTEXT)",
    "CREATE UNIQUE INDEX [PrimaryKey] ON [Wortbedeutung] ([ID_Wortbedeutung]) WITH PRIMARY",
    "CREATE INDEX [ID_Woerterbuch] ON [Wortbedeutung] ([ID_Woerterbuch])",
    "CREATE INDEX [Bedeutung] ON [Wortbedeutung] ([Wortbedeutung])",
    "CREATE TABLE [URL] ([ID_URL] COUNTER,[ID_Woerterbuch] LONG,[URLName] TEXT(250),[URL] TEXT(250),"
    "[URLNotiz] LONGTEXT,[Rating] SHORT)",
    "CREATE UNIQUE INDEX [PrimaryKey] ON [URL] ([ID_URL]) WITH PRIMARY",
    "CREATE INDEX [ID_Woerterbuch] ON [URL] ([ID_Woerterbuch])",
    "CREATE INDEX [URLName] ON [URL] ([URLName])",
    "CREATE TABLE [Attachment] ([ID_Attachment] COUNTER,[ID_Woerterbuch] LONG,"
    "[AttachmentName] TEXT(250),[Attachment] TEXT(250),[AttachmentNotiz] LONGTEXT)",
    "CREATE UNIQUE INDEX [PrimaryKey] ON [Attachment] ([ID_Attachment]) WITH PRIMARY",
    "CREATE INDEX [ID_Woerterbuch] ON [Attachment] ([ID_Woerterbuch])",
    "CREATE INDEX [AttachmentName] ON [Attachment] ([AttachmentName])",
    "CREATE TABLE [Querverweis] ([ID_Querverweis] COUNTER,[ID_Woerterbuch] LONG,"
    "[ID_WoerterbuchQV] LONG,[Querverweis] TEXT(250))",
    "CREATE UNIQUE INDEX [PrimaryKey] ON [Querverweis] ([ID_Querverweis]) WITH PRIMARY",
    "CREATE INDEX [ID_Woerterbuch] ON [Querverweis] ([ID_Woerterbuch])",
    "CREATE INDEX [ID_WoerterbuchQV] ON [Querverweis] ([ID_WoerterbuchQV])",
    "CREATE INDEX [Querverweis] ON [Querverweis] ([Querverweis])",
    "CREATE TABLE [WortBedBsp] ([ID_WortbedBsp] COUNTER,[ID_Wortbedeutung] LONG,[Beispiel] LONGTEXT,"
    "[Beispieluebersetzung] LONGTEXT)",
    "CREATE UNIQUE INDEX [PrimaryKey] ON [WortBedBsp] ([ID_WortbedBsp]) WITH PRIMARY",
    "CREATE INDEX [ID_Wortbedeutung] ON [WortBedBsp] ([ID_Wortbedeutung])",
    "CREATE TABLE [relWortbedWKat] ([ID_Wortbedeutung] LONG,[ID_WKategorie] LONG,"
    "[KategorieWert] TEXT(50))",
    "CREATE TABLE [relWortbedSachgebiet] ([ID_Wortbedeutung] LONG,[ID_Sachgebiet] LONG)",
    "CREATE TABLE [relWoertWKat] ([ID_Woerterbuch] LONG,[ID_WKategorie] LONG,"
    "[KategorieWert] TEXT(50))",
    "CREATE TABLE [relWoertSachgebiet] ([ID_Woerterbuch] LONG,[ID_WSachgebiet] LONG)",
    "CREATE TABLE [WoerterbuchFlat] ([ID_WoerterbuchFlat] COUNTER,[ID_Woerterbuch] LONG,"
    "[EigenschaftenZumBegriff] LONGTEXT,[SachgebieteZumBegriff] LONGTEXT,"
    "[AbkEigenschaftenZumBegriff] LONGTEXT,[AbkSachgebieteZumBegriff] LONGTEXT,"
    "[Querverweise] LONGTEXT,[URLs] LONGTEXT)",
    "CREATE TABLE [WortbedeutungFlat] ([ID_WortbedeutungFlat] COUNTER,[ID_Wortbedeutung] LONG,"
    "[EigenschaftenZurWortbedeutung] LONGTEXT,[SachgebieteZurWortbedeutung] LONGTEXT,"
    "[AbkEigenschaftenZurWortbedeutung] LONGTEXT,[AbkSachgebieteZurWortbedeutung] LONGTEXT,"
    "[Beispiele] LONGTEXT,[Beispieluebersetzungen] LONGTEXT)",
    "CREATE TABLE [Regeln] ([RegelID] COUNTER,[RegelName] TEXT(250),[AnzahlVarianten] SHORT,"
    "[SichernZuUnterObjekt] BIT,[SichernZuBemerkung] BIT)",
    "CREATE UNIQUE INDEX [PrimaryKey] ON [Regeln] ([RegelID]) WITH PRIMARY",
    "CREATE INDEX [RegelName] ON [Regeln] ([RegelName])",
    "CREATE TABLE [RegelVarianten] ([RegelVariantenID] COUNTER,[RegelID] LONG,"
    "[ErsetzenZeichenfolge] TEXT(50),[ErsetzenInnerhalbAnzahl] SHORT,"
    "[ErsetzenDurchZeichenfolge] TEXT(50),[VoranStellText] TEXT(50),[NachStellText] TEXT(50),"
    "[ErsetzenText] TEXT(50),[ErsetzenAnzahlZeichen] SHORT,[ErsetzeAnfang] BIT,[ErsetzeMitte] BIT,"
    "[ErsetzeEnde] BIT,[VariantenPrioritaet] SHORT)",
    "CREATE UNIQUE INDEX [PrimaryKey] ON [RegelVarianten] ([RegelVariantenID]) WITH PRIMARY",
    "CREATE INDEX [RegelID] ON [RegelVarianten] ([RegelID])",
    "CREATE TABLE [RelRegelVariantenWKat] ([RegelVariantenID] LONG,[ID_WKategorie] LONG,"
    "[KategorieWert] TEXT(50))",
    "CREATE TABLE [RelRegelVariantenWSachgebiet] ([RegelVariantenID] LONG,[ID_Sachgebiet] LONG)",
    "CREATE TABLE [RelWoertregel] ([RegelID] LONG,[ID_Woerterbuch] LONG)",
    "CREATE TABLE [Druckschriften] ([ObjektSchriftart] TEXT(50),[ObjektSchriftgroesse] SHORT,"
    "[ObjektSchriftFett] BIT,[ObjektSchriftKursiv] BIT,[ObjektSchriftUnterstrichen] BIT,"
    "[ObjektSchriftFarbe] TEXT(15),[AusspracheSchriftart] TEXT(50),[AusspracheSchriftgroesse] SHORT,"
    "[AusspracheSchriftFett] BIT,[AusspracheSchriftKursiv] BIT,[AusspracheSchriftUnterstrichen] BIT,"
    "[AusspracheSchriftFarbe] TEXT(15),[BedeutungSchriftart] TEXT(50),"
    "[BedeutungSchriftgroesse] SHORT,[BedeutungSchriftFett] BIT,[BedeutungSchriftKursiv] BIT,"
    "[BedeutungSchriftUnterstrichen] BIT,[BedeutungSchriftFarbe] TEXT(15),"
    "[EigenschaftSchriftart] TEXT(50),[EigenschaftSchriftgroesse] SHORT,[EigenschaftSchriftFett] BIT,"
    "[EigenschaftSchriftKursiv] BIT,[EigenschaftSchriftUnterstrichen] BIT,"
    "[EigenschaftSchriftFarbe] TEXT(15),[SachgebietSchriftart] TEXT(50),"
    "[SachgebietSchriftgroesse] SHORT,[SachgebietSchriftFett] BIT,[SachgebietSchriftKursiv] BIT,"
    "[SachgebietSchriftUnterstrichen] BIT,[SachgebietSchriftFarbe] TEXT(15),"
    "[BeispielSchriftart] TEXT(50),[BeispielSchriftgroesse] SHORT,[BeispielSchriftFett] BIT,"
    "[BeispielSchriftKursiv] BIT,[BeispielSchriftUnterstrichen] BIT,[BeispielSchriftFarbe] TEXT(15),"
    "[BeispieluebersetzungSchriftart] TEXT(50),[BeispieluebersetzungSchriftgroesse] SHORT,"
    "[BeispieluebersetzungSchriftFett] BIT,[BeispieluebersetzungSchriftKursiv] BIT,"
    "[BeispieluebersetzungSchriftUnterstrichen] BIT,[BeispieluebersetzungSchriftFarbe] TEXT(15),"
    "[BemerkungSchriftart] TEXT(50),[BemerkungSchriftgroesse] SHORT,[BemerkungSchriftFett] BIT,"
    "[BemerkungSchriftKursiv] BIT,[BemerkungSchriftUnterstrichen] BIT,"
    "[BemerkungSchriftFarbe] TEXT(15),[URLSchriftart] TEXT(50),[URLSchriftgroesse] SHORT,"
    "[URLSchriftFett] BIT,[URLSchriftKursiv] BIT,[URLSchriftUnterstrichen] BIT,"
    "[URLSchriftFarbe] TEXT(15),[QuerverweisSchriftart] TEXT(50),[QuerverweisSchriftgroesse] SHORT,"
    "[QuerverweisSchriftFett] BIT,[QuerverweisSchriftKursiv] BIT,"
    "[QuerverweisSchriftUnterstrichen] BIT,[QuerverweisSchriftFarbe] TEXT(15))",
    "CREATE TABLE [FilterSettings] ([ID_Woerterbuch] LONG)",
    "CREATE TABLE [Kodierungen] ([ID_Code] COUNTER,[Code] TEXT(15),[Codebeschreibung] TEXT(50))",
    "CREATE TABLE [Vokabeltraining] ([Begriff] TEXT(250),[Wortbedeutung] TEXT(250),[Richtig] LONG,"
    "[ZuletztRichtig] LONG,[ZuletztTrainiert] TEXT(50),[ZuletztTrainiertDatum] TEXT(12))",
    "CREATE UNIQUE INDEX [PrimaryKey] ON [Vokabeltraining] ([Begriff],[Wortbedeutung]) WITH PRIMARY",
    "CREATE TABLE [Umgebung] ([ID_Umgebung] COUNTER,[Dateityp] TEXT(5),[Anwendung] LONGTEXT)",
    "CREATE TABLE [FilterSelektion1] ([ID_Woerterbuch] LONG)",
    "CREATE INDEX [ID_Woerterbuch] ON [FilterSelektion1] ([ID_Woerterbuch])",
    "CREATE TABLE [WZeit] ([date_key] LONG,[full_date] DATE,[day_num_of_week] SHORT,"
    "[day_num_of_month] SHORT,[day_num_of_quarter] SHORT,[day_num_of_year] SHORT,"
    "[day_of_week_name] TEXT(10),[day_of_week_abbr] TEXT(2),[week_num_of_month] SHORT,"
    "[week_num_of_quarter] SHORT,[week_num_of_year] SHORT,[month_num_of_year] SHORT,"
    "[month_name] TEXT(10),[month_name_abbr] TEXT(3),[month_begin_date] DATE,[month_end_date] DATE,"
    "[quarter_num_of_year] SHORT,[quarter_begin_date] DATE,[quarter_end_date] DATE,[year_num] SHORT,"
    "[year_begin_date] DATE,[year_end_date] DATE)",
    "CREATE INDEX [date_key] ON [WZeit] ([date_key])",
    "CREATE TABLE [WArtikel] ([ID_Artikel] COUNTER,[Artikel] TEXT(20))",
}};

}  // namespace

void CreateTables(engine::Database& db) {
  for (const char* statement : statements) db.Execute(statement);
}

void CreateTable(engine::Database& db, std::string_view name) {
  const std::string create = "CREATE TABLE [" + std::string(name) + "]",
                    index = " ON [" + std::string(name) + "] ";
  for (const std::string statement : statements)
    if (statement.starts_with(create) || statement.find(index) != std::string::npos) db.Execute(statement);
}

}  // namespace store
