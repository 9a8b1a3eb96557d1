#include "tests/days/shop.h"

#include <algorithm>
#include <fstream>
#include <stdexcept>

#include "localcompany/company_schema.h"
#include "platform/database/sqlite_engine.h"
#include "platform/norwegian.h"
#include "platform/recordset_file/writer.h"
#include "store/schema.h"
#include "tests/days/texts.h"

namespace days {

namespace fs = std::filesystem;
using platform::ToText;
using platform::Value;
using platform::database::Database;
using platform::database::SqliteEngine;
using platform::recordset_file::RecordsetColumn;
using platform::recordset_file::RecordsetFileWriter;

namespace {

constexpr const char* kStoreFile = "data/Kassovia.mdb";
constexpr const char* kCompanyFile = "Butikken.company";

void AddRow(Database& database, const std::string& table, Row row) {
    const auto appender = database.OpenAppender(table);
    for (int i = 0; i < appender->FieldCount(); ++i) {
        appender->Set(i, In(row, appender->FieldName(i)));
        row.erase(appender->FieldName(i));
    }
    if (!row.empty()) throw std::runtime_error(table + " has no column " + row.begin()->first);
    appender->Save();
}

// By way of a table, which gives each value the type of its column.
void WriteRecordset(const fs::path& file, const std::vector<RecordsetColumn>& columns,
                    const std::string& table, const std::vector<Row>& rows) {
    const auto database = SqliteEngine().CreateDatabase(":memory:");
    store::CreateSalesTables(*database);
    for (const Row& row : rows)
        AddRow(*database, table, row);
    RecordsetFileWriter writer(file.string(), columns);
    for (const auto& values : database->Prepare("SELECT * FROM " + table)->Run({}))
        writer.Write(values);
    writer.Finish();
}

class ShopOfDay {
  public:
    ShopOfDay(fs::path usual, fs::path day, fs::path folder)
        : usual_(std::move(usual)), day_(std::move(day)), folder_(std::move(folder)) {}

    // The first of two equal settings counts.
    void WriteSettings() const {
        const std::string settings = InSystemsForm(
            "[General]\n" + ReadBytes(day_ / "settings.txt") + ReadBytes(usual_ / "settings.txt"));
        for (const char* file : {"KVDayEndServer.ini", "Kassovia.ini"})
            std::ofstream(folder_ / file, std::ios::binary) << settings;
    }

    void WriteDatabases() const {
        fs::create_directories(folder_ / "data");
        WriteDatabase("data/KVDayEndServer.mdb", store::CreateSalesTables, "work");
        WriteDatabase(kStoreFile, store::CreateStoreTables, "store");
        WriteDatabase(kCompanyFile, localcompany::CreateCompanyTables, "company");
        Row options;
        for (const Row& row : ChangedTable("options.txt").rows)
            options[TextIn(row, "Option")] = In(row, "Value");
        AddRow(*SqliteEngine().OpenDatabase((folder_ / kStoreFile).string()), "Options", options);
    }

    // From NAME.sales.txt and NAME.lines.txt, or sales.txt and lines.txt for a set without a name.
    void WriteDataSets() const {
        for (const auto& entry : fs::directory_iterator(day_)) {
            const std::string file = entry.path().filename().string();
            if (!file.ends_with("sales.txt")) continue;
            const std::string start = file.substr(0, file.find("sales.txt"));
            const std::string target = start.substr(0, start.find('.')) + "DayEndSales";
            WriteRecordset(folder_ / (target + ".XML"), store::SalesColumns(), "Sales",
                           Records(start, "sales.txt"));
            std::vector<Row> lines = Records(start, "lines.txt");
            for (std::size_t i = 0; i < lines.size(); ++i)
                lines[i]["LineNo"] = static_cast<int>(i);
            WriteRecordset(folder_ / (target + "Lines.XML"), store::SalesLinesColumns(),
                           "SalesLines", lines);
        }
    }

    void CopyFilesBefore() const {
        if (!fs::exists(day_ / "before")) return;
        for (const auto& entry : fs::directory_iterator(day_ / "before")) {
            std::ofstream(folder_ / entry.path().filename(), std::ios::binary)
                << InSystemsForm(ReadBytes(entry.path()));
        }
    }

  private:
    // The usual table with its rows changed, and extended, by those of the day.
    [[nodiscard]] Table ChangedTable(const fs::path& file) const {
        Table table = ReadTable(usual_ / file);
        for (const Row& change : ReadTable(day_ / file.filename()).rows) {
            const auto known = std::ranges::find_if(table.rows, [&](const Row& row) {
                return In(row, table.key) == In(change, table.key);
            });
            const Row whole = Completed(change, table);
            (known == table.rows.end() ? table.rows.emplace_back() : *known) = whole;
        }
        return table;
    }

    // The folder `tables` has a file for each table that is not empty, named like it.
    void WriteDatabase(const char* file, void (*createTables)(Database&),
                       const std::string& tables) const {
        const auto database = SqliteEngine().CreateDatabase((folder_ / file).string());
        createTables(*database);
        if (!fs::exists(usual_ / tables)) return;
        const auto transaction = database->BeginTransaction();
        for (const auto& entry : fs::directory_iterator(usual_ / tables)) {
            for (const Row& row : ChangedTable(tables / entry.path().filename()).rows)
                AddRow(*database, entry.path().stem().string(), row);
        }
        transaction->Commit();
    }

    // The records of a data set, complete, with the codes that words stand for.
    [[nodiscard]] std::vector<Row> Records(const std::string& start,
                                           const std::string& kind) const {
        const Table usual = ReadTable(usual_ / kind);
        const Table codes = ReadTable(usual_ / "codes.txt");
        std::vector<Row> records = ReadTable(day_ / (start + kind)).rows;
        for (Row& record : records) {
            record = Completed(record, usual);
            for (const Row& code : codes.rows) {
                const auto cell = record.find(TextIn(code, "Column"));
                if (cell != record.end() && cell->second == In(code, "Word"))
                    cell->second = In(code, "Code");
            }
        }
        return records;
    }

    fs::path usual_;
    fs::path day_;
    fs::path folder_;
};

struct Part {
    std::string word;
    std::string table;
    std::string columns;
};

const Part kMasterData[] = {
    {"kunde", "Customers", "ID"}, {"vare", "Products", "ID"}, {"pris", "PriceMatrix", "ProdNo"}};

const Part kCompanyTables[] = {
    {"Kunde", "OCRD", "CardCode|CardName|Phone1|Fax|E_Mail|Address|Block|ZipCode|City|DebPayAcct"},
    {"Vare", "OITM", "ItemCode|ItemName"},
    {"Pris", "ITM1", "ItemCode|PriceList|Price"},
    {"Bilag", "OJDT", "TransId|RefDate|Memo"}};

const std::string kHeadColumns =
    "DocEntry|CardCode|CardName|NumAtCard|DocDate|Comments|OwnRef|SlpCode|Printed";
const std::string kLineColumns =
    "ItemCode|Dscription|Quantity|Price|DiscPrcnt|AcctCode|Project|OcrCode";

constexpr std::pair<const char*, const char*> kDocuments[] = {{"Faktura", "INV"},
                                                              {"Kreditnota", "RIN"},
                                                              {"Ordre", "RDR"},
                                                              {"Følgeseddel", "DLN"},
                                                              {"Retur", "RDN"}};

// The rows of a table, each as the word and its values.
std::vector<std::string> Rows(Database& database, const Part& part, const std::string& condition) {
    std::string columns = part.columns;
    std::ranges::replace(columns, '|', ',');
    const std::string sql = "SELECT " + columns + " FROM " + part.table + " " + condition;
    std::vector<std::string> rows;
    for (const auto& values : database.Prepare(sql)->Run({})) {
        std::string& row = rows.emplace_back(part.word);
        for (const Value& value : values)
            row += " | " + (value.IsNull() ? "-" : ToText(value));
        row += "\n";
    }
    return rows;
}

}  // namespace

void LayOutShop(const fs::path& days, const std::string& name, const fs::path& folder) {
    const ShopOfDay shop(days / "usual", days / name, folder);
    shop.WriteSettings();
    shop.WriteDatabases();
    shop.WriteDataSets();
    shop.CopyFilesBefore();
}

std::string StoreText(const fs::path& folder) {
    const auto store = SqliteEngine().OpenDatabase((folder / kStoreFile).string());
    std::string text =
        "Neste bilagsnummer: " + ToText(store->OpenTable("Options")->Get("NextVoucherNo")) +
        "\nEndret, men ikke overført:\n";
    for (const Part& data : kMasterData) {
        for (const std::string& row : Rows(*store, data, "WHERE Status <> 0"))
            text += row;
    }
    return text;
}

std::string CompanyText(const fs::path& folder, const std::string& before) {
    const auto company = SqliteEngine().OpenDatabase((folder / kCompanyFile).string());
    std::string text;
    for (const Part& part : kCompanyTables) {
        text += part.word + "|" + part.columns + "\n";
        for (const std::string& row : Rows(*company, part, "ORDER BY 1, 2"))
            if (before.find(row) == std::string::npos) text += row;
        text += "\n";
    }
    text += "Dokument|" + kHeadColumns + "\nLinje|" + kLineColumns + "\n";
    for (const auto& [word, table] : kDocuments) {
        const std::string heads = std::string("O") + table;
        const std::string lines = std::string(table) + "1";
        for (const std::string& head : Rows(*company, {word, heads, kHeadColumns}, "ORDER BY 1")) {
            const int key = std::stoi(head.substr(head.find('|') + 1));
            text += head;
            for (const std::string& line :
                 Rows(*company, {"Linje", lines, kLineColumns},
                      "WHERE DocEntry = " + std::to_string(key) + " ORDER BY LineNum"))
                text += line;
        }
    }
    return text;
}

}  // namespace days
