#pragma once

#include <filesystem>

struct Options;
class TavoSession;
struct UiLanguage;

// The automation pipe without a window, on standard input and output; returns the exit code.
int runHeadless(const Options& options);

// What both faces do first: the message files, the language and the drawing named on the command line. Faults
// go to the session's command line.
void startSession(TavoSession& session, const Options& options);

// The texts of a language, before there is a session.
void loadMessages(const std::filesystem::path& given, const UiLanguage& language);

// The folder of the message files: the given one, or messages/ beside the executable, share/kxGui/messages of
// the installation it is in, or the one a file tavocad.paths beside the executable names. Empty when there is
// none.
std::filesystem::path findMessages(const std::filesystem::path& given, const std::filesystem::path& executable);
// Of the running program.
std::filesystem::path executablePath();
