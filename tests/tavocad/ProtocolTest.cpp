#include "platform/host/TavoSysvarManager.h"
#include "tests/tavocad/ScriptedSession.h"

#include <gmock/gmock.h>

using testing::HasSubstr;
using Protocol = ScriptedSession;

namespace {
std::string error(const nlohmann::ordered_json& reply) { return reply.value("error", std::string()); }
} // namespace

// What must hold for any bytes at all: one reply a line, a sentence that says what was wrong, and the next
// request works.
TEST_F(Protocol, AnswersEveryLineWhateverItIs) {
    std::string script;
    int requests = 0;
    auto add = [&](const std::string& line) {
        script += line + "\n{\"do\":\"getvar\",\"name\":\"EXPERT\"}\n";
        ++requests;
    };
    add("no json");
    add("{\"do\":");
    add("[]");
    add("7");
    add("{}");
    add("{\"do\":7}");
    add("{\"do\":\"opne\",\"path\":\"x\"}");
    add("{\"do\":\"open\"}");
    add("{\"do\":\"open\",\"path\":[1]}");
    add("{\"do\":\"getvar\",\"name\":\"NOSUCHVAR\"}");
    add("{\"do\":\"setvar\",\"name\":\"EXPERT\",\"value\":{}}");
    add("{\"do\":\"setvar\",\"name\":\"EXPERT\",\"value\":99999999999999999999}");
    add("{\"do\":\"setvar\",\"name\":\"EXPERT\",\"value\":1e999}");
    add("{\"do\":\"point\",\"at\":[1]}");
    add("{\"do\":\"point\",\"at\":[1,2]}");
    add("{\"do\":\"click\",\"control\":\"IDOK\"}");
    add("{\"do\":\"key\",\"key\":\"NoSuchKey\"}");
    add("{\"do\":\"advance\",\"ms\":-1}");
    add("{\"do\":\"screenshot\",\"path\":\"x.png\"}");
    add("{\"do\":\"undo\"}");
    add("{\"do\":\"select\",\"handles\":[\"1\"]}");
    add("{\"do\":\"command\",\"name\":\"UNIST\"}");
    add("{\"do\":\"language\",\"name\":\"xx\"}");
    add("\xff\xfe\x80");
    add("{\"do\":\"\xc3\x28\"}");
    add(std::string("{\"do\":\"\0\"}", 10));
    add(std::string(100000, '['));
    add("{\"do\":\"" + std::string(Channel::maxLine, 'x') + "\"}");
    const auto replies = run(script);
    ASSERT_EQ(replies.size(), static_cast<std::size_t>(2 * requests));
    for (std::size_t i = 0; i < replies.size(); i += 2) {
        EXPECT_FALSE(replies[i]["ok"].get<bool>()) << replies[i].dump();
        EXPECT_GT(error(replies[i]).size(), 10U) << replies[i].dump();
        EXPECT_TRUE(replies[i + 1]["ok"].get<bool>()) << "after " << replies[i].dump();
    }
    EXPECT_EQ(exitCode, 0);
}

TEST_F(Protocol, RefusalsNameWhatIsNear) {
    const auto replies =
        run("{\"do\":\"new\"}\n{\"do\":\"opne\"}\n{\"do\":\"command\",\"name\":\"UNIST\"}\n"
            "{\"do\":\"command\",\"name\":\"UNITS\"}\n{\"do\":\"click\",\"control\":\"IDC_UNIT_LTYPE\"}\n"
            "{\"do\":\"save\"}\n{\"do\":\"click\",\"control\":\"IDCANCEL\"}\n");
    EXPECT_THAT(error(replies[1]), HasSubstr("open"));
    EXPECT_THAT(error(replies[1]), testing::Not(HasSubstr("undo"))) << "only what is near";
    EXPECT_THAT(error(replies[2]), HasSubstr("UNITS"));
    EXPECT_EQ(replies[3]["modal"], replies[5]["modal"]);
    EXPECT_THAT(error(replies[4]), HasSubstr("IDC_UNITS_LTYPE"));
    EXPECT_FALSE(replies[5]["ok"].get<bool>()) << "a drawing is not saved under an open window";
    EXPECT_EQ(replies[6]["ended"]["result"], RTCAN);
    EXPECT_TRUE(replies[6]["modal"].is_null());
}

TEST_F(Protocol, LinesArriveInPiecesAndEndAnyHow) {
    LineSplitter lines(10);
    std::string line;
    EXPECT_EQ(lines.take(line), Channel::State::nothingYet);
    lines.feed("ab");
    EXPECT_EQ(lines.take(line), Channel::State::nothingYet);
    lines.feed("c\r\n\nmuch too long for");
    lines.feed(" ten bytes\nlast");
    lines.close();
    std::vector<std::pair<Channel::State, std::string>> taken;
    for (Channel::State state = lines.take(line); state != Channel::State::ended; state = lines.take(line))
        taken.emplace_back(state, line);
    using State = Channel::State;
    EXPECT_EQ(taken,
              (std::vector<std::pair<State, std::string>>{
                  {State::line, "abc"}, {State::line, ""}, {State::tooLong, ""}, {State::line, "last"}}));
}

// Nobody is left to answer the window: it is cancelled, and the exit code says that the script was incomplete.
TEST_F(Protocol, EndOfInputInsideAWindowIsLoud) {
    testing::internal::CaptureStderr();
    const auto replies = run("{\"do\":\"new\"}\n{\"do\":\"command\",\"name\":\"UN\"}\n");
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr(replies[1]["modal"].get<std::string>()));
    EXPECT_EQ(exitCode, 3);
    EXPECT_TRUE(session.host().commands()->running().empty());
}

TEST_F(Protocol, VariablesTravelWithTheirType) {
    const auto replies =
        run("{\"do\":\"getvar\",\"name\":\"LUNITS\"}\n{\"do\":\"new\"}\n"
            "{\"do\":\"setvar\",\"name\":\"lunits\",\"value\":4}\n{\"do\":\"getvar\",\"name\":\"LUNITS\"}\n"
            "{\"do\":\"setvar\",\"name\":\"LUNITS\",\"value\":9}\n{\"do\":\"getvar\",\"name\":\"LUNITS\"}\n"
            "{\"do\":\"setvar\",\"name\":\"LUNITS\",\"value\":\"four\"}\n"
            "{\"do\":\"setvar\",\"name\":\"INSBASE\",\"value\":[1.5,-2,3]}\n"
            "{\"do\":\"getvar\",\"name\":\"INSBASE\"}\n{\"do\":\"getvar\",\"name\":\"CLAYER\"}\n"
            "{\"do\":\"getvar\",\"name\":\"CECOLOR\"}\n{\"do\":\"undo\"}\n{\"do\":\"undo\"}\n"
            "{\"do\":\"redo\"}\n{\"do\":\"getvar\",\"name\":\"LUNITS\"}\n");
    EXPECT_FALSE(replies[0]["ok"].get<bool>()) << "no drawing is open";
    EXPECT_EQ(replies[3]["value"], 4);
    EXPECT_THAT(error(replies[4]), HasSubstr("LUNITS"));
    EXPECT_EQ(replies[5]["value"], 4);
    EXPECT_FALSE(replies[6]["ok"].get<bool>());
    EXPECT_EQ(replies[8]["value"], (nlohmann::ordered_json{1.5, -2.0, 3.0}));
    EXPECT_EQ(replies[9]["value"], "0");
    EXPECT_TRUE(replies[10]["value"].is_string());
    for (std::size_t i : {11U, 12U, 13U})
        EXPECT_TRUE(replies[i]["ok"].get<bool>()) << replies[i].dump();
    EXPECT_EQ(replies[14]["value"], 4);
}

TEST_F(Protocol, CommandLineReadsVariablesAndCommands) {
    run("{\"do\":\"new\"}\n");
    auto typed = [this](const wchar_t* line) {
        session.host().commandLine()->takeNew();
        const int result = session.enterLine(line);
        std::wstring said;
        for (const OdString& part : session.host().commandLine()->takeNew())
            said += part.wstr() + L"|";
        return std::pair(result, said);
    };
    EXPECT_EQ(typed(L"  lunits  3 ").first, RTNORM);
    EXPECT_EQ(typed(L"LUNITS").second, L"LUNITS = 3|");
    EXPECT_EQ(typed(L"LUNITS 3.5").first, RTERROR);
    EXPECT_EQ(typed(L"_u").first, RTNORM);
    EXPECT_EQ(typed(L"LUNITS").second, L"LUNITS = 2|");
    EXPECT_EQ(typed(L"REDO 0").first, RTERROR);
    EXPECT_EQ(typed(L"redo").first, RTNORM);
    EXPECT_EQ(typed(L"U 5").first, RTNORM) << "as many steps as there are";
    EXPECT_EQ(typed(L"U").first, RTERROR);
    EXPECT_EQ(typed(L"").first, RTERROR) << "an empty line repeats the last command";
    const auto unknown = typed(L"UNTIS");
    EXPECT_EQ(unknown.first, RTERROR);
    EXPECT_THAT(unknown.second, HasSubstr(L"UNITS"));
    EXPECT_THAT(typed(L"?").second, HasSubstr(L"UNITS, UN, DDUNITS: "));
    EXPECT_EQ(typed(L"OPEN").first, RTERROR) << "there is nobody to choose a file";
}

TEST_F(Protocol, PointsAreReadAsTyped) {
    const OdGePoint3d base{10, 20, 0};
    EXPECT_EQ(parsePoint(L"1.5,-2", base), (OdGePoint3d{1.5, -2, 0}));
    EXPECT_EQ(parsePoint(L" 1, 2 ,3", base), (OdGePoint3d{1, 2, 3}));
    EXPECT_EQ(parsePoint(L"@1,2", base), (OdGePoint3d{11, 22, 0}));
    const auto polar = parsePoint(L"@2<90", base);
    ASSERT_TRUE(polar);
    EXPECT_NEAR(polar->x, 10, 1e-12);
    EXPECT_NEAR(polar->y, 22, 1e-12);
    for (const wchar_t* text : {L"", L"1", L"1,2,3,4", L"1,x", L"1;2", L"2<", L"@", L"1,,2"})
        EXPECT_FALSE(parsePoint(text, base)) << testing::PrintToString(std::wstring(text));
}

// Every field of every request, missing or of every wrong type, with a window open: the refusal names the
// field, and neither the window nor the drawing has changed.
TEST_F(Protocol, EveryFieldIsChecked) {
    struct Field {
        const char *request, *name;
        const char* rest;     // what else the request needs
        const char* accepted; // the one of the values below that it takes
        bool optional = false;
    };
    const char control[] = R"("control":"IDC_UNITS_LTYPE")";
    const std::vector<Field> fields = {
        {"open", "path", "", R"("x")"},
        {"save", "path", "", R"("x")", true},
        {"getvar", "name", "", R"("x")"},
        {"setvar", "name", R"("value":1)", R"("x")"},
        {"command", "name", "", R"("x")"},
        {"command", "arguments", R"("name":"NEW")", R"("x")", true},
        {"language", "name", "", R"("x")"},
        {"select", "handles", "", "[]"},
        {"click", "control", "", R"("x")"},
        {"type", "text", control, R"("x")"},
        {"type", "control", R"("text":"")", R"("x")"},
        {"choose", "index", control, "7"},
        {"choose", "text", control, R"("x")", true},
        {"check", "checked", R"("control":"IDC_UNITS_CLOCKWISE")", "true", true},
        {"selectRows", "rows", control, "[]"},
        {"cell", "row", R"("column":0,"control":"IDOK")", "7"},
        {"cell", "column", R"("row":0,"control":"IDOK")", "7"},
        {"cell", "action", R"("row":0,"column":0,"control":"IDOK")", "", true},
        {"cell", "text", R"("row":0,"column":0,"action":"edit","control":"IDOK")", R"("x")"},
        {"selectRows", "ranges", control, "[]", true},
        {"header", "column", control, "7"},
        {"column", "place", R"("column":0,"action":"move","control":"IDOK")", "7"},
        {"column", "action", R"("column":0,"control":"IDOK")", ""},
        {"tree", "path", control, "[]"},
        {"tree", "expanded", R"("path":[],"action":"expand","control":"IDOK")", "true", true},
        {"key", "key", "", R"("x")"},
        {"menu", "text", "", R"("x")"},
        {"point", "at", "", ""},
        {"point", "cancel", "", "true", true},
        {"advance", "ms", "", "7"},
        {"screenshot", "path", "", R"("x")"},
        {"dialog", "first", "", "7", true},
    };
    std::string script = "{\"do\":\"new\"}\n{\"do\":\"command\",\"name\":\"UNITS\"}\n{\"do\":\"dialog\"}\n";
    std::vector<std::string> names;
    for (const Field& field : fields)
        for (const std::string value :
             {"", "null", "7", "1.5", "99999999999", R"("x")", "true", "[]", "[{}]", "{}"}) {
            const bool missing = value.empty() || value == "null";
            if (value == field.accepted || (missing && field.optional)) continue;
            script += std::string("{\"do\":\"") + field.request + "\"";
            if (*field.rest) script += std::string(",") + field.rest;
            if (!value.empty()) script += std::string(",\"") + field.name + "\":" + value;
            script += "}\n";
            names.push_back(field.name);
        }
    const auto replies = run(script + "{\"do\":\"dialog\"}\n{\"do\":\"click\",\"control\":\"IDCANCEL\"}\n");
    ASSERT_EQ(replies.size(), names.size() + 5);
    for (std::size_t i = 0; i < names.size(); ++i) {
        const auto& reply = replies[i + 3];
        EXPECT_FALSE(reply["ok"].get<bool>()) << names[i] << ' ' << reply.dump();
        EXPECT_THAT(error(reply), HasSubstr('"' + names[i] + '"'));
        EXPECT_EQ(reply["modal"], "IDD_UNITS");
    }
    EXPECT_EQ(replies[2]["dialog"], replies[names.size() + 3]["dialog"]);
    EXPECT_FALSE(session.document()->isModified());
}

// Each drawing keeps its own values and steps; opening an open file again only brings it to the front.
TEST_F(Protocol, SeveralDrawingsAtOnce) {
    const std::string openPlan = "{\"do\":\"open\",\"path\":" + quoted(makeDrawing("plan.dxf")) + "}\n";
    const std::string get = "{\"do\":\"getvar\",\"name\":\"LUNITS\"}\n", undo = "{\"do\":\"undo\"}\n";
    auto set = [](int value) {
        return "{\"do\":\"setvar\",\"name\":\"LUNITS\",\"value\":" + std::to_string(value) + "}\n";
    };
    const auto replies =
        run(openPlan + set(4) + "{\"do\":\"new\"}\n" + set(5) + openPlan + get + undo + undo + get +
            "{\"do\":\"save\"}\n{\"do\":\"close\"}\n" + get + undo +
            "{\"do\":\"command\",\"name\":\"REDO\"}\n{\"do\":\"command\",\"name\":\"CLOSE\"}\n" +
            "{\"do\":\"click\",\"control\":\"IDYES\"}\n{\"do\":\"close\"}\n" + get);
    EXPECT_EQ(replies[5]["value"], 4);
    EXPECT_TRUE(replies[6]["ok"].get<bool>());
    EXPECT_FALSE(replies[7]["ok"].get<bool>()) << "the other drawing's step is not this one's";
    EXPECT_EQ(replies[8]["value"], 2);
    EXPECT_EQ(replies[10]["discarded"], false);
    EXPECT_EQ(replies[11]["value"], 5);
    EXPECT_EQ(replies[14]["modal"], "IDD_TASK_DIALOG");
    EXPECT_EQ(replies[15]["ended"]["result"], RTCAN) << "there is no name to save to";
    EXPECT_EQ(replies[15]["messages"].size(), 1U);
    EXPECT_EQ(replies[16]["discarded"], true);
    EXPECT_FALSE(replies[17]["ok"].get<bool>()) << "no drawing is open";
}

// Whatever a variable can't take is one sentence with its name, the value and what is allowed; it stays as it
// was.
TEST_F(Protocol, RefusedVariablesSayWhatIsAllowed) {
    run("{\"do\":\"new\"}\n");
    const std::pair<const wchar_t*, const wchar_t*> lines[] = {{L"LUNITS abc", L"정수"},
                                                               {L"LUNITS 2.5", L"정수"},
                                                               {L"LUNITS 9", L"1"},
                                                               {L"LUNITS 99999999999", L""},
                                                               {L"LTSCALE -1", L"0"},
                                                               {L"LTSCALE 1e999", L"실수"},
                                                               {L"LTSCALE nan", L"실수"},
                                                               {L"ANGDIR 2", L"1"},
                                                               {L"INSBASE 1,x", L"x,y,z"},
                                                               {L"CECOLOR purple", L"색"},
                                                               {L"CLAYER nolayer", L"nolayer"},
                                                               {L"ACADVER 1", L"읽기"},
                                                               {L"SETVAR NOSUCH 1", L"없는 이름입니다"}};
    for (const auto& [line, allowed] : lines) {
        const std::wstring text(line);
        const std::size_t blank = text.rfind(L' ');
        std::wstring name = text.substr(0, blank);
        name = name.substr(name.find(L' ') + 1);
        OdString before, after;
        session.host().sysvarManager()->getText(name, before, nullptr);
        session.host().commandLine()->takeNew();
        EXPECT_EQ(session.enterLine(line), RTERROR) << testing::PrintToString(text);
        const auto said = session.host().commandLine()->takeNew();
        ASSERT_EQ(said.size(), 1U) << testing::PrintToString(text);
        EXPECT_THAT(said[0].wstr(), testing::AllOf(HasSubstr(name), HasSubstr(allowed)));
        session.host().sysvarManager()->getText(name, after, nullptr);
        EXPECT_EQ(before, after);
    }
    EXPECT_FALSE(session.document()->isModified());
}

// A variable's name does what it does on the command line; undoing and redoing say what they did; the model
// goes by the word of its tab.
TEST_F(Protocol, CommandsSayWhatTheyDid) {
    const auto replies =
        runWell("{\"do\":\"new\"}\n"
                "{\"do\":\"command\",\"name\":\"lunits\",\"arguments\":\"5\"}\n"
                "{\"do\":\"command\",\"name\":\"LUNITS\"}\n"
                "{\"do\":\"command\",\"name\":\"UNDO\"}\n{\"do\":\"command\",\"name\":\"REDO\"}\n"
                "{\"do\":\"command\",\"name\":\"LAYOUT\"}\n"
                "{\"do\":\"command\",\"name\":\"LAYOUT\",\"arguments\":\"모형\"}\n");
    const auto message = [&](std::size_t reply) { return replies[reply]["messages"].at(0).get<std::string>(); };
    EXPECT_EQ(replies[1]["ended"]["result"], RTNORM);
    EXPECT_EQ(message(2), "LUNITS = 5");
    EXPECT_EQ(message(3), "실행 취소함: SETVAR");
    EXPECT_EQ(message(4), "다시 실행함: SETVAR");
    EXPECT_EQ(message(5), "* 모형");
    EXPECT_EQ(replies[6]["ended"]["result"], RTNORM);
}
