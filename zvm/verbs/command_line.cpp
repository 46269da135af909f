#include "zvm/verbs/command_line.h"

#include <algorithm>
#include <cerrno>
#include <new>
#include <optional>
#include <span>

#include "session/fault.h"
#include "zvm/verbs/output.h"
#include "zvm/verbs/text.h"
#include "zvm/verbs/verb.h"

namespace zevfit::verbs {
namespace {

const Verb* verbOf(std::string_view name) {
  const auto verbs = allVerbs();
  const auto found = std::ranges::find(verbs, name, &Verb::name);
  return found == verbs.end() ? nullptr : &*found;
}

std::vector<std::string> verbNames() {
  std::vector<std::string> names;
  names.reserve(allVerbs().size());
  for (const Verb& verb : allVerbs()) names.emplace_back(verb.name);
  return names;
}

std::string helpText() {
  std::vector<std::vector<std::string>> rows;
  for (const Verb& verb : allVerbs()) rows.push_back({"  " + std::string(verb.name), verb.summary});
  return "Usage: zvm VERB [options] INPUT... [OUTPUT]\n\nVerbs:\n" + table(rows) +
         "\nzvm VERB --help tells of a verb, zvm --version of the program. - stands for stdin and "
         "stdout.\nExit: 0 done, or the verdict is good; 1 the verdict is bad; 2 wrong usage; 3 "
         "the data\ncan't be used; 4 a file can't be read or written; 130 interrupted.\n";
}

std::vector<std::string> optionNames(const CLI::App& app) {
  std::vector<std::string> names;
  for (const CLI::Option* option : app.get_options())
    for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
  return names;
}

/// What is left over of the arguments: an option that the verb does not have, or one too many.
void refuseExtras(const CLI::App& app) {
  std::vector<std::string> extras = app.remaining();
  // The mark behind which all are files counts as one of them.
  const auto mark = std::ranges::find(extras, "--");
  const auto options = static_cast<std::size_t>(mark - extras.begin());
  std::erase(extras, "--");
  for (const std::string& extra : std::span(extras).first(options)) {
    const std::string name = extra.substr(0, extra.find('=', 2));
    if (name.size() > 1 && name.front() == '-')
      throw Failure(Exit::usage, "no option `" + name + "` of " + app.get_name() + "; there are " +
                                     nearestFirst(name, optionNames(app)));
  }
  if (!extras.empty())
    throw Failure(Exit::usage, "`" + extras.front() + "` is one argument too many; " +
                                   app.get_name() + " --help tells more");
}

/// Nothing for what is no option of the verb.
const CLI::Option* optionOf(const CLI::App& app, const std::string& argument) {
  return argument.starts_with('-') ? app.get_option_no_throw(argument) : nullptr;
}

/// An option in the place of a value: the value was forgotten. The library would take it.
void refuseForgottenValues(const CLI::App& app, const std::vector<std::string>& arguments) {
  const auto mark = std::ranges::find(arguments, "--");
  const auto count = static_cast<std::size_t>(mark - arguments.begin());
  for (std::size_t i = 0; i + 1 < count; ++i) {
    const CLI::Option* option = optionOf(app, arguments[i]);
    if (option == nullptr || option->get_expected_max() == 0) continue;
    const std::string& value = arguments[++i];
    if (optionOf(app, value) != nullptr)
      throw Failure(Exit::usage, option->get_name() + " takes a value: " + option->get_type_name() +
                                     "; `" + value + "` is an option");
  }
}

/// In a text of the library what stands between two parts of it; nothing where they are not there.
std::optional<std::string> between(std::string_view text, std::string_view before,
                                   std::string_view behind) {
  const std::size_t from = text.find(before);
  if (from == text.npos) return std::nullopt;
  const std::size_t first = from + before.size(), last = text.find(behind, first);
  if (last == text.npos) return std::nullopt;
  return std::string(text.substr(first, last - first));
}

/// What the library says of arguments, in our words.
std::string wordsOf(const CLI::ParseError& error) {
  const std::string text = std::string(error.what()) + '\n';
  if (const auto count = between(text, ": At Most 1 required but received ", "\n"))
    return *between(text, "", ":") + " takes one value, not " + *count;
  if (const auto kind = between(text, ": 1 required ", " missing\n"))
    return *between(text, "", ":") + " takes a value: " + *kind;
  if (const auto name = between(text, "Could not convert: ", " = "))
    return *name + " does not take `" + *between(text, " = ", "\n") + '`';
  return error.what();
}

/// False where the arguments only ask for help or the version, which is then printed.
bool isParsed(CLI::App& app, std::vector<std::string> arguments, Context& context) {
  refuseForgottenValues(app, arguments);
  // It takes them from the end.
  std::ranges::reverse(arguments);
  try {
    app.parse(std::move(arguments));
  } catch (const CLI::CallForHelp&) {
    context.print(app.help());
    return false;
  } catch (const CLI::CallForVersion& version) {
    context.print(std::string(version.what()) + '\n');
    return false;
  } catch (const CLI::ParseError& error) {
    refuseExtras(app);
    throw Failure(Exit::usage, wordsOf(error) + "; " + app.get_name() + " --help tells more");
  }
  refuseExtras(app);
  return true;
}

Exit runTop(const std::vector<std::string>& arguments, Context& context) {
  if (arguments.empty())
    throw Failure(Exit::usage,
                  "no verb; there are " + listed(verbNames()) + "; zvm --help tells more");
  const std::string& first = arguments.front();
  if (first == "--help") {
    context.print(helpText());
    return Exit::done;
  }
  if (first == "--version") {
    context.print("zvm " ZEVFIT_VERSION "\n");
    return Exit::done;
  }
  if (first.starts_with('-'))
    throw Failure(Exit::usage, "no option `" + first + "` in front of a verb; there are " +
                                   nearestFirst(first, {"--help", "--version"}));
  const Verb* verb = verbOf(first);
  if (verb == nullptr)
    throw Failure(Exit::usage, "no verb `" + first + "`; there are " +
                                   nearestFirst(first, verbNames()) + "; zvm --help tells more");
  const VerbApp made = appOf(*verb, context.common);
  const std::vector<std::string> rest(arguments.begin() + 1, arguments.end());
  return isParsed(*made.app, rest, context) ? made.run(context) : Exit::done;
}

/// Stdout first, so that a run that fails there leaves no file.
void deliver(const Context& context, std::ostream& out) {
  errno = 0;
  if (!context.printed().empty() && !(out << context.printed() << std::flush))
    throw Failure(Exit::file, errno == EPIPE ? std::string()
                                             : "cannot write stdout: " +
                                                   std::generic_category().message(errno));
  writeOutputs(context.pending(), context.common.overwrite);
}

Exit runAll(const std::vector<std::string>& arguments, Context& context, std::ostream& out) {
  try {
    const Exit code = runTop(arguments, context);
    deliver(context, out);
    return code;
  } catch (const Failure& failure) {
    // One without words is a closed pipe: nobody is there to be told.
    if (failure.what()[0] != '\0') context.error(failure.what());
    return failure.code();
  } catch (const Fault& fault) {
    context.error(fault.what());
    return Exit::data;
  } catch (const std::bad_alloc&) {
    context.error("not enough memory");
    return Exit::data;
  }
}

}  // namespace

int runCommand(const std::vector<std::string>& arguments, std::istream& in, std::ostream& out,
               std::ostream& err) {
  Context context(in, err);
  return static_cast<int>(runAll(arguments, context, out));
}

}  // namespace zevfit::verbs
