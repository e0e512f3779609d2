// The words of the commands, in Lithuanian.
#include "host/console/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "host/console/commands.h"
#include "host/console/copy_commands.h"
#include "host/console/desktop_command.h"
#include "host/console/exchange_commands.h"
#include "host/console/insight_commands.h"
#include "host/console/report_commands.h"
#include "host/store/addresses.h"

namespace quor {

namespace {

// The commands that print on paper, too.
constexpr char kPreview[] = "preview";
constexpr char kPrint[] = "print";
constexpr char kMonth[] = "month";
constexpr char kExport[] = "export";
constexpr char kExplain[] = "explain";
constexpr char kRoom[] = "room";
constexpr char kSteps[] = "steps";

// The parser takes a word in brackets for a list, divides it at its commas and calls itself for every level. Here such
// a word is a word: it travels behind this sign.
constexpr char kWholeWord = '\x01';

std::string whole_word(const std::string& word) { return word.starts_with('[') ? kWholeWord + word : word; }
std::string as_written(const std::string& word) { return word.starts_with(kWholeWord) ? word.substr(1) : word; }

void parse_whole_words(CLI::App& app, int argc, char** argv) {
  std::vector<CLI::App*> apps = app.get_subcommands(nullptr);
  apps.push_back(&app);
  for (CLI::App* each : apps) {
    for (CLI::Option* option : each->get_options()) {
      if (option->get_items_expected_max() > 0) option->transform(as_written);
    }
  }
  std::vector<std::string> words;  // the parser takes them last first
  for (int at = argc - 1; at > 0; --at) words.push_back(whole_word(argv[at]));
  app.parse(std::move(words));
}

// The words that no command understood, quoted.
std::string quoted_words(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "„" : ", „") + shown_address(as_written(word)) + "“";
  return text;
}

// The parser's own texts are English; each kind of slip has its Lithuanian one. What the slip is about stands behind
// the colon of the parser's text, or is its first word.
std::string usage_text(const CLI::App& app, const CLI::ParseError& error) {
  const std::string text = error.what();
  const std::string subject = text.find(": ") == std::string::npos ? text : text.substr(text.find(": ") + 2);
  const std::vector<std::string> left = app.remaining(true);
  if (dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr) return "nesuprantama: " + quoted_words(left);
  if (dynamic_cast<const CLI::RequiredError*>(&error) != nullptr) {
    if (app.get_subcommands().empty())
      return left.empty() ? "trūksta komandos" : "nežinoma komanda " + quoted_words(left);
    return "trūksta reikšmės " + text.substr(0, text.find(' '));
  }
  if (dynamic_cast<const CLI::ConversionError*>(&error) != nullptr) return "netinkama reikšmė: " + subject;
  if (dynamic_cast<const CLI::ArgumentMismatch*>(&error) != nullptr) {
    return "netinka reikšmių skaičius: " + text.substr(0, text.find(':'));
  }
  return "netinkamas kvietimas: " + subject;
}

void label_in_lithuanian(CLI::App& app) {
  const auto formatter = app.get_formatter();
  formatter->label("Usage", "Naudojimas");
  formatter->label("OPTIONS", "PARINKTYS");
  formatter->label("Options", "Parinktys");
  formatter->label("SUBCOMMAND", "KOMANDA");
  formatter->label("SUBCOMMANDS", "KOMANDOS");
  formatter->label("Subcommands", "Komandos");
  formatter->label("Positionals", "Reikšmės");
  formatter->label("REQUIRED", "(būtina)");
  formatter->label("Env", "aplinkos kintamasis");
  formatter->label("TEXT", "TEKSTAS");
  formatter->label("INT", "SKAIČIUS");
  formatter->label("UINT", "SKAIČIUS");
  app.option_defaults()->group("Parinktys");
  app.set_help_flag("-h,--help", "parodo šią pagalbą");
}

void add_common_options(CLI::App& app, CommonOptions& options) {
  app.add_option("--company", options.company, "įmonės failas arba postgresql://naudotojas@serveris/bazė")
      ->envname("QUOR_COMPANY");
  app.add_option("--plugin", options.plugins, "įskiepio biblioteka; be jos – visos, esančios šalia programos")
      ->allow_extra_args(false)
      ->envname("QUOR_PLUGIN");
  app.add_option("--user", options.user, "naudotojo vardas")->envname("QUOR_USER");
  app.add_option("--today", options.today, "diena vietoj šiandienos, pvz., 2008.01.31");
  app.add_option("--format", options.format,
                 "table, csv, csv-semicolon (skaičiuoklei) arba json; sąrašai ir lapeliai dar pdf ir xlsx");
  app.add_option("--output", options.output, "failas, į kurį rašomas rezultatas");
}

void check_format(const CommonOptions& options, const std::string& command) {
  std::vector<std::string> formats = {"table", "csv", "csv-semicolon", "json"};
  const auto is_one_of = [&](std::initializer_list<const char*> some) {
    return std::find(some.begin(), some.end(), command) != some.end();
  };
  if (is_one_of({kPreview, kPrint, kExplain, kRoom, kSteps})) formats.emplace_back("pdf");
  if (is_one_of({kPreview, kPrint, kExplain, kRoom, kSteps, kMonth})) formats.emplace_back("xlsx");
  if (std::find(formats.begin(), formats.end(), options.format) != formats.end()) {
    for (const auto& [format, kind] : {std::pair("pdf", "PDF"), std::pair("xlsx", "XLSX")}) {
      if (options.format != format || !options.output.empty()) continue;
      throw UsageError(kind + std::string(" rašomas į failą: nurodykite --output FAILAS"));
    }
    return;
  }
  std::string text = "nežinomas formatas „" + options.format + "“: yra ";
  for (const std::string& format : formats) text += (format == formats.front() ? "" : ", ") + format;
  throw UsageError(text);
}

template <typename Words>
std::vector<std::string> files_read(const Words& /*none*/) {
  return {};
}
template <typename Words>
std::vector<std::string> files_written(const Words& /*none*/) {
  return {};
}

// Adds one subcommand whose words fill `words`; choosing it makes it the command.
template <typename Words>
CLI::App& add_command(CLI::App& app, const std::string& name, const std::string& description, Words& words,
                      const CommonOptions& options, CalledCommand& command) {
  CLI::App& added = *app.add_subcommand(name, description);
  label_in_lithuanian(added);
  added.group("Komandos");
  added.callback([&] {
    command = {.run = [&](std::ostream& out) { return run(words, options, out); },
               .read = [&] { return files_read(words); },
               .written = [&] { return files_written(words); }};
  });
  return added;
}

struct AllWords {
  InitCommand init;
  MonthCommand month;
  CallCommand call;
  GetCommand get{.name = {}, .parameter = "None"};
  ExportCommand export_table;
  ImportCommand import_file;
  BackupCommand backup;
  RestoreCommand restore;
  PreviewCommand preview;
  PrintCommand print;
  ExplainCommand explain;
  RoomCommand room;
  StepsCommand steps;
  CheckCommand check;
  DesktopCommand desktop;
};

void add_exchange_commands(CLI::App& app, AllWords& words, const CommonOptions& options, CalledCommand& command) {
  CLI::App& take_out = add_command(app, kExport, "išveda lentelę, jei nenurodyta kitaip – CSV pavidalu",
                                   words.export_table, options, command);
  take_out.add_option("LENTELĖ", words.export_table.table, "lentelės vardas, pvz., worked_time");
  take_out.add_option("--all", words.export_table.folder, "aplankas, į kurį įrašomos visos lentelės");

  CLI::App& bring_in =
      add_command(app, "import", "įkelia CSV failą: visą arba nieko", words.import_file, options, command);
  bring_in.add_option("LENTELĖ", words.import_file.table,
                      "lentelės vardas, pvz., worked_time arba „Darbo laikas“; be jo lentelę parodo failo stulpeliai");
  bring_in.add_option("FAILAS", words.import_file.file, "CSV failas");
  bring_in.add_option("--all", words.import_file.folder, "aplankas, iš kurio įkeliamos visos lentelės");
  bring_in.add_option("--mapping", words.import_file.mapping, "JSON failas: ką reiškia kitaip pavadinti stulpeliai");
  bring_in.add_flag("--dry-run", words.import_file.dry_run, "nieko nerašo, tik parodo, kas būtų įkelta");
  bring_in.add_flag("--into-closed", words.import_file.into_closed, "leidžia įrašams siekti uždarytus mėnesius");
}

void add_copy_commands(CLI::App& app, AllWords& words, const CommonOptions& options, CalledCommand& command) {
  CLI::App& backup = add_command(app, "backup", "padaro įmonės failo atsarginę kopiją", words.backup, options, command);
  backup.add_option("FAILAS", words.backup.file, "kopijos vieta; be jos – šalia įmonės, su data ir laiku");
  CLI::App& restore = add_command(app, "restore", "atkuria įmonės failą iš kopijos; kas buvo, palieka šalia",
                                  words.restore, options, command);
  restore.add_option("FAILAS", words.restore.file, "kopija")->required();
}

void add_report_commands(CLI::App& app, AllWords& words, const CommonOptions& options, CalledCommand& command) {
  CLI::App& preview = add_command(app, kPreview, "parodo mėnesio peržiūros sąrašą", words.preview, options, command);
  preview.add_option("PERŽIŪRA", words.preview.kind, "peržiūros vardas, pvz., salary arba supplements")->required();
  preview.add_option("MĖNUO", words.preview.month, "mėnuo, pvz., 2008-01")->required();
  preview.add_option("--department", words.preview.department,
                     "padalinio ID: tik jo ir jam pavaldžių padalinių žmonės");

  CLI::App& print = add_command(app, kPrint, "atspausdina sąrašą", words.print, options, command);
  print.add_option("SĄRAŠAS", words.print.what, "sąrašo vardas, pvz., categories")->required();
}

void add_insight_commands(CLI::App& app, AllWords& words, const CommonOptions& options, CalledCommand& command) {
  CLI::App& explain =
      add_command(app, kExplain, "paaiškina, iš kur kiekviena žmogaus mėnesio suma", words.explain, options, command);
  explain.add_option("MĖNUO", words.explain.month, "mėnuo, pvz., 2008-01")->required();
  explain.add_option("DARBUOTOJAS", words.explain.employee, "darbuotojo numeris arba pavardė")->required();

  CLI::App& room =
      add_command(app, kRoom, "parodo, kiek dar galima skirti neviršijant ribų", words.room, options, command);
  room.add_option("MĖNUO", words.room.month, "mėnuo, pvz., 2008-01")->required();
  room.add_option("--department", words.room.department, "padalinio ID: tik jo ir jam pavaldžių padalinių žmonės");
  room.add_flag("--by-department", words.room.by_department, "ne žmonių, o padalinių sąrašas");

  CLI::App& steps = add_command(app, kSteps, "parodo, kas ir kada pasieks kitą priedo už tarnybos stažą procentą",
                                words.steps, options, command);
  steps.add_option("MĖNUO", words.steps.month, "pirmas mėnuo, pvz., 2008-02")->required();
  steps.add_option("--months", words.steps.months, "kiek mėnesių; be jo – 3");
  steps.add_option("--department", words.steps.department, "padalinio ID: tik jo ir jam pavaldžių padalinių žmonės");

  CLI::App& check = add_command(app, "check", "išbando taisyklių lenteles: kas turi išeiti ir kas išeina", words.check,
                                options, command);
  check.add_option("VIETA", words.check.place, "aplankas su CSV lentelėmis arba viena lentelė")->required();
}

void add_commands(CLI::App& app, AllWords& words, const CommonOptions& options, CalledCommand& command) {
  CLI::App& init = add_command(app, "init", "sukuria pavyzdinę įmonę", words.init, options, command);
  init.add_option("--employees", words.init.employees, "darbuotojų skaičius");
  init.add_option("--seed", words.init.seed, "pavyzdžio numeris: tas pats numeris duoda tą pačią įmonę");
  init.add_flag("--empty", words.init.empty, "be duomenų: įmonė, į kurią jie bus įkelti");
  init.add_option("--start", words.init.start,
                  "įstaigos pavadinimas: be darbuotojų, su įprasta stažo skale, ribomis, kodais ir kategorijomis");

  add_command(app, "desktop", "atveria langus", words.desktop, options, command);

  CLI::App& month =
      add_command(app, kMonth, "apskaičiuoja mėnesio darbo užmokestį ir jį parodo", words.month, options, command);
  month
      .add_option("MĖNUO", words.month.words,
                  "mėnuo, pvz., 2008-01; close 2008-01 jį uždaro, reopen 2008-01 atveria, state 2008-01 parodo būseną")
      ->required()
      ->expected(1, 2);
  month.add_option("--department", words.month.department, "padalinio ID: tik jo ir jam pavaldžių padalinių žmonės");
  month.add_option("--despite", words.month.despite, "priežastis, dėl kurios mėnuo uždaromas, nors yra kliūčių");
  month.add_option("--reason", words.month.reason, "priežastis, dėl kurios uždarytas mėnuo atveriamas");

  CLI::App& call = add_command(app, "call", "kviečia vieną variklio metodą", words.call, options, command);
  call.add_option("METODAS", words.call.method, "metodo vardas")->required();
  call.add_option("ARGUMENTAI", words.call.arguments,
                  "skaičius, true, false, @failas.json, @RINKINYS[:PARAMETRAS] arba tekstas");
  call.add_option("--oid", words.call.oid, "variklio objekto OID");
  call.add_option("--pick", words.call.pick, "ką atsako objekto pasirinkimo langas, pvz., O04022005#GUID");

  CLI::App& get = add_command(app, "get", "parodo vieną įrašų rinkinį", words.get, options, command);
  get.add_option("RINKINYS", words.get.name, "įrašų rinkinio vardas, pvz., SalaryConstants")->required();
  get.add_option("PARAMETRAS", words.get.parameter, "parametro tekstas, pvz., \"'2008.01.31'\"");
}

}  // namespace

struct CommandLine::State {
  CLI::App app{"Valstybės tarnautojų darbo užmokestis", "quor"};
  CommonOptions options{.company = "sample.quor", .plugins = {}, .today = {}, .output = {}, .user = {}};
  AllWords words;
  CalledCommand command;
};

CommandLine::CommandLine() : state_(std::make_unique<State>()) {
  auto& [app, options, words, command] = *state_;
  app.require_subcommand(1);
  app.fallthrough();
  label_in_lithuanian(app);
  add_common_options(app, options);
  add_commands(app, words, options, command);
  add_report_commands(app, words, options, command);
  add_insight_commands(app, words, options, command);
  add_exchange_commands(app, words, options, command);
  add_copy_commands(app, words, options, command);
}

CommandLine::~CommandLine() = default;

CalledCommand CommandLine::parse(int argc, char** argv) {
  CLI::App& app = state_->app;
  try {
    parse_whole_words(app, argc, argv);
  } catch (const CLI::CallForHelp&) {
    throw HelpWanted{app.help()};
  } catch (const CLI::ParseError& error) {
    throw UsageError(usage_text(app, error));
  }
  state_->words.desktop.company_named = app.get_option("--company")->count() > 0;
  return state_->command;
}

const CommonOptions& CommandLine::options() {
  CommonOptions& options = state_->options;
  const std::string name = state_->app.get_subcommands().front()->get_name();
  if (name == kExport && state_->app.get_option("--format")->count() == 0) options.format = "csv";
  check_format(options, name);
  return options;
}

}  // namespace quor
