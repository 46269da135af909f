#include <array>
#include <sstream>

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
  bool takesValue = false;
  std::string description;
};

struct VerbWords {
  std::string name, summary;
  std::vector<OptionWords> options;
  std::vector<std::string> arguments;  ///< the values of an argument of a few
  bool takesFiles = false;             ///< another argument is a file
};

/// The values of a type such as "bash|zsh"; none where it names but a kind.
std::vector<std::string> valuesOf(const std::string& type) {
  std::vector<std::string> values;
  if (type.find('|') == type.npos) return values;
  std::istringstream in(type);
  for (std::string value; std::getline(in, value, '|');) values.push_back(value);
  return values;
}

OptionWords wordsOf(const CLI::Option& option) {
  OptionWords words{{},
                    valuesOf(option.get_type_name()),
                    option.get_expected_max() > 0,
                    option.get_description()};
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

/// What completes a word: one of these words, or a file where there is none or `alsoFiles`.
std::string bashReply(const std::vector<std::string>& words, bool alsoFiles = false) {
  const std::string from =
      words.empty() ? "-f" : (alsoFiles ? "-f -W '" : "-W '") + joined(words, " ") + '\'';
  return "mapfile -t COMPREPLY < <(compgen " + from + " -- \"$word\")";
}

std::string bashVerb(const VerbWords& verb) {
  std::string values;
  std::vector<std::string> names;
  for (const OptionWords& option : verb.options) {
    names.insert(names.end(), option.names.begin(), option.names.end());
    if (option.takesValue)
      values += "        " + joined(option.names, " | ") + ") " + bashReply(option.values) +
                "; return ;;\n";
  }
  return "    " + verb.name + ")\n      case $before in\n" + values +
         "      esac\n      if [[ $word == -* ]]; then\n        " + bashReply(names) +
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
         bashReply(names) + "\n    return\n  fi\n  case ${COMP_WORDS[1]} in\n" + cases +
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

std::string zshValues(const std::vector<std::string>& values) {
  return values.empty() ? ":_files" : ":(" + joined(values, " ") + ")";
}

std::string zshVerb(const VerbWords& verb) {
  std::string text = "    " + verb.name + ")\n      _arguments";
  for (const OptionWords& option : verb.options)
    for (const std::string& name : option.names)
      text += " \\\n        '*" + name + '[' + zshQuoted(option.description) + ']' +
              (option.takesValue ? ":value" + zshValues(option.values) : "") + '\'';
  // Words come first, files behind them.
  const bool isFirst = verb.takesFiles && !verb.arguments.empty();
  if (isFirst) text += " \\\n        '1:argument" + zshValues(verb.arguments) + '\'';
  return text + " \\\n        '*:argument" +
         zshValues(isFirst ? std::vector<std::string>() : verb.arguments) + "' ;;\n";
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
  app.add_option("SHELL", *shell, "bash or zsh")->required()->type_name("bash|zsh");
  return [shell](Context& context) { return runCompletion(*shell, context); };
}

}  // namespace zevfit::verbs
