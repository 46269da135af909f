#include <algorithm>
#include <array>
#include <sstream>
#include <string_view>

#include "zvm/verbs/add_option.h"
#include "zvm/verbs/report.h"
#include "zvm/verbs/text.h"
#include "zvm/verbs/verb.h"

// The completion of a shell is made from what each verb declares: its options, and of an option of
// a few values those.

namespace zevfit::verbs {
namespace {

struct OptionWords {
  std::vector<std::string> names;   ///< "--to", "-o"
  std::vector<std::string> values;  ///< of a few values, these
  bool takesValue = false, takesFile = false;
  std::string description;  ///< its first line
};

struct VerbWords {
  std::string name, summary;
  std::vector<OptionWords> options;
  std::vector<std::string> arguments;  ///< the values of an argument of a few
  bool takesFiles = false;             ///< another argument is a file
};

/// The types of options that take a file.
constexpr std::array<std::string_view, 2> kFileTypes{"OUT", "FILE.ini"};

/// A kind of values is named in capitals, as in "free|VALUE".
bool isKind(const std::string& word) {
  return std::ranges::any_of(word, [](char c) { return c >= 'A' && c <= 'Z'; });
}

/// The values of a type such as "bash|zsh"; none where it names but a kind.
std::vector<std::string> valuesOf(const std::string& type) {
  std::vector<std::string> values;
  if (type.find('|') == type.npos) return values;
  std::istringstream in(type);
  for (std::string value; std::getline(in, value, '|');)
    if (!isKind(value)) values.push_back(value);
  return values;
}

OptionWords wordsOf(const CLI::Option& option) {
  const std::string type = option.get_type_name();
  const std::string& text = option.get_description();
  OptionWords words;
  words.values = valuesOf(type);
  words.takesValue = option.get_expected_max() > 0;
  words.takesFile = std::ranges::count(kFileTypes, type) > 0;
  words.description = text.substr(0, text.find('\n'));
  for (const std::string& name : option.get_snames()) words.names.push_back("-" + name);
  for (const std::string& name : option.get_lnames()) words.names.push_back("--" + name);
  return words;
}

std::vector<VerbWords> walk() {
  std::vector<VerbWords> verbs;
  Common common;
  for (const Verb& verb : allVerbs()) {
    const VerbApp made = appOf(verb, common);
    VerbWords words{verb.name, verb.summary, {}, {}};
    for (const CLI::Option* option : std::as_const(*made.app).get_options()) {
      if (!option->get_positional()) {
        words.options.push_back(wordsOf(*option));
        continue;
      }
      const auto values = valuesOf(option->get_type_name());
      words.arguments.insert(words.arguments.end(), values.begin(), values.end());
      words.takesFiles = words.takesFiles || values.empty();
    }
    verbs.push_back(words);
  }
  return verbs;
}

std::string joined(const std::vector<std::string>& words, const char* between) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : between) + word;
  return text;
}

// ---- bash

/// What completes a word: one of these words, or a file.
std::string bashReply(const std::vector<std::string>& words, bool takesFiles) {
  if (words.empty() && !takesFiles) return ":";
  const std::string files = takesFiles ? "-f " : "";
  const std::string from = words.empty() ? files : files + "-W '" + joined(words, " ") + "' ";
  return "mapfile -t COMPREPLY < <(compgen " + from + "-- \"$word\")";
}

std::string bashVerb(const VerbWords& verb) {
  std::string values;
  std::vector<std::string> names;
  for (const OptionWords& option : verb.options) {
    names.insert(names.end(), option.names.begin(), option.names.end());
    if (option.takesValue)
      values += "        " + joined(option.names, " | ") + ") " +
                bashReply(option.values, option.takesFile) + "; return ;;\n";
  }
  return "    " + verb.name + ")\n      case $before in\n" + values +
         "      esac\n      if [[ $word == -* ]]; then\n        " + bashReply(names, false) +
         "\n      else\n        " + bashReply(verb.arguments, verb.takesFiles) + "\n      fi ;;\n";
}

std::string bashText(const std::vector<VerbWords>& verbs) {
  std::vector<std::string> names;
  std::string cases;
  for (const VerbWords& verb : verbs) {
    names.push_back(verb.name);
    cases += bashVerb(verb);
  }
  names.insert(names.end(), {"--help", "--version"});
  return "# Completion of zvm for bash.\n_zvm() {\n"
         "  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]}\n"
         "  COMPREPLY=()\n"
         "  if [ \"$COMP_CWORD\" -eq 1 ]; then\n    " +
         bashReply(names, false) + "\n    return\n  fi\n  case ${COMP_WORDS[1]} in\n" + cases +
         "  esac\n}\ncomplete -o filenames -F _zvm zvm\n";
}

// ---- zsh

/// Within single quotes, where a colon and brackets have a meaning of their own.
std::string zshQuoted(const std::string& text) {
  std::string quoted;
  for (const char c : text) {
    if (c == '\'') {
      quoted += "'\\''";
      continue;
    }
    if (c == ':' || c == '[' || c == ']' || c == '\\') quoted += '\\';
    quoted += c;
  }
  return quoted;
}

/// The action behind a colon: one of these words, a file, or nothing but the message.
std::string zshValues(const std::vector<std::string>& values, bool takesFiles) {
  if (!values.empty()) return ":(" + joined(values, " ") + ")";
  return takesFiles ? ":_files" : ": ";
}

std::string zshVerb(const VerbWords& verb) {
  std::string text = "    " + verb.name + ")\n      _arguments";
  for (const OptionWords& option : verb.options)
    for (const std::string& name : option.names)
      text += " \\\n        '*" + name + '[' + zshQuoted(option.description) + ']' +
              (option.takesValue ? ":value" + zshValues(option.values, option.takesFile) : "") +
              '\'';
  // Words come first, files behind them.
  const bool isFirst = verb.takesFiles && !verb.arguments.empty();
  if (isFirst) text += " \\\n        '1:argument" + zshValues(verb.arguments, false) + '\'';
  return text + " \\\n        '*:argument" +
         zshValues(isFirst ? std::vector<std::string>() : verb.arguments, verb.takesFiles) +
         "' ;;\n";
}

std::string zshText(const std::vector<VerbWords>& verbs) {
  std::string names, cases;
  for (const VerbWords& verb : verbs) {
    names += "    '" + verb.name + ':' + zshQuoted(verb.summary) + "'\n";
    cases += zshVerb(verb);
  }
  return "#compdef zvm\n# Completion of zvm for zsh.\n_zvm() {\n  local -a verbs=(\n" + names +
         "  )\n  if (( CURRENT == 2 )); then\n    _describe verb verbs\n    return\n  fi\n"
         "  local verb=$words[2]\n  shift words\n  (( CURRENT-- ))\n  case $verb in\n" +
         cases +
         "  esac\n}\n"
         "# Loaded by its name it is called, and read as a file made known.\n"
         "if [[ $funcstack[1] == _zvm ]]; then\n  _zvm \"$@\"\nelse\n  compdef _zvm zvm\nfi\n";
}

struct Shell {
  const char* name;
  std::string (*text)(const std::vector<VerbWords>&);
};
constexpr std::array kShells{Shell{"bash", bashText}, Shell{"zsh", zshText}};

Exit runCompletion(const std::string& asked, Context& context) {
  std::vector<std::string> names;
  for (const Shell& shell : kShells) {
    names.emplace_back(shell.name);
    if (asked != shell.name) continue;
    const std::string script = shell.text(walk());
    context.print(
        context.common.json
            ? textOf({{"schema", "zvm.completion/1"}, {"shell", shell.name}, {"script", script}})
            : script);
    return Exit::done;
  }
  throw Failure(Exit::usage, "no shell `" + asked + "`; there are " + nearestFirst(asked, names));
}

}  // namespace

Run declareCompletion(CLI::App& app) {
  const auto shell = std::make_shared<std::string>();
  AddOption{app}("SHELL", *shell, "bash or zsh", "bash|zsh")->required();
  return [shell](Context& context) { return runCompletion(*shell, context); };
}

}  // namespace zevfit::verbs
