"""Shows on small trees that the check of the message files passes when it may and fails when it must."""
import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "scripts"))
sys.dont_write_bytecode = True
import check_messages

SOURCE = r'''
// VORD_ResourceString("IN_A_COMMENT", L"no")
const int million = 1'000'000; const char quote = '"'; /* " */
auto a = text(VORD_ResourceString("A",
    L"열기 %d개: " /* then */ L"\"%s\"\n\uAC00"));
VORD_ResourceString b("B", L"예(&Y)");
auto c = manager->GetVal(L"IDD_T", L"IDOK", L"확인");
auto d = R"(not a key: VORD_ResourceString("RAW", L"no"))";
Template t{1, "IDD_T"}; CButton button{*this, "IDC_NAME"};
'''
KOREAN = ('A = 열기 %d개: \\"%s\\"\\n가\nB=예(&Y)\n[IDD_T]\nIDOK=확인\nIDC_NAME = 이름\nCAPTION = " 제목 "\n')
ENGLISH = KOREAN.replace("열기", "Open").replace("예", "Yes").replace("확인", "OK")


class CheckMessages(unittest.TestCase):
    def check(self, english=ENGLISH, korean=KOREAN, source=SOURCE, others=""):
        with tempfile.TemporaryDirectory() as folder:
            root = Path(folder)
            for name in (*check_messages.ROOMS, "messages"):
                (root / name).mkdir()
            (root / "kxgui" / "A.cpp").write_text(source, encoding="utf-8")
            for suffix in check_messages.SUFFIXES:
                content = {"_kr": korean, "_en": english}.get(suffix, others + ENGLISH)
                if content is not None:
                    (root / "messages" / f"kxgui{suffix}.ini").write_bytes(content.encode("utf-8"))
            self.list = check_messages.listing(root)
            return check_messages.check(root)

    def fails(self, part, **changes):
        faults, _ = self.check(**changes)
        self.assertEqual(len(faults), 1, faults)
        self.assertIn(part, faults[0])

    def test_complete_files_pass(self):
        self.assertEqual(self.check(), ([], []))
        self.assertEqual([(text["section"], text["key"]) for text in self.list],
                         [("", "A"), ("", "B"), ("IDD_T", "IDOK")])
        self.assertEqual(self.list[0]["defaults"], ['열기 %d개: "%s"\n가'])

    def test_missing_and_unused(self):
        self.fails("B is missing", english=ENGLISH.replace("B=Yes(&Y)\n", ""))
        self.fails("[IDD_T] IDOK is missing", english=ENGLISH.replace("IDOK=OK\n", ""))
        self.fails("IDC_NAME is missing", english=ENGLISH.replace("IDC_NAME = 이름\n", ""))
        self.fails("C is used nowhere", english="C = c\n" + ENGLISH)
        self.fails("IN_A_COMMENT is used nowhere", english="IN_A_COMMENT = c\n" + ENGLISH)
        self.fails("IDC_X is used nowhere", english=ENGLISH + "IDC_X = x\n")
        self.assertTrue(self.check(english=None)[0])

    def test_directives_and_mnemonics(self):
        self.fails("directives", english=ENGLISH.replace("%d", "%s"))
        self.fails("directives", english=ENGLISH.replace("%d", ""))
        self.fails("directives", english=ENGLISH.replace("%d", "%1").replace("%s", "%d").replace("%1", "%s"))
        self.assertEqual(self.check(english=ENGLISH.replace("%d", "100%% %ld")), ([], []))
        self.fails("mnemonic", english=ENGLISH.replace("(&Y)", " && No"))

    def test_defaults(self):
        self.fails("not the default text", korean=KOREAN.replace("예", "네"))
        faults, warnings = self.check(source=SOURCE + 'f(VORD_ResourceString("B", L"네(&Y)"));')
        self.assertEqual(faults, [])
        self.assertEqual(len(warnings), 1)
        self.fails("must be literals", source=SOURCE + 'f(VORD_ResourceString("B", x ? L"네" : L"예"));')

    def test_rows_of_a_table(self):
        table = 'constexpr text::TableText kRows[] = {\n {"R1", L"하" L"나"}, // {"R9", L"no"}\n {"R2", L"둘"},};\n'
        rows = "R1 = 하나\nR2 = 둘\n"
        with_rows = {"source": SOURCE + table, "korean": rows + KOREAN, "english": rows + ENGLISH, "others": rows}
        self.assertEqual(self.check(**with_rows), ([], []))
        self.assertEqual([text["places"] for text in self.list if text["key"][0] == "R"],
                         [["kxgui/A.cpp:11"], ["kxgui/A.cpp:12"]])
        self.fails("R2 is missing", **{**with_rows, "english": rows[:8] + ENGLISH})
        self.fails("A.cpp:13: key and default text must be literals",
                   **{**with_rows, "source": SOURCE + table.replace("};", '\n{key, L"셋"}};')})

    def test_broken_lines(self):
        for line in ("no equals sign", "X = \\q", "X = \"open", " = y"):
            self.fails("_en.ini:1: broken line", english=line + "\n" + ENGLISH)
        self.fails("B is there twice", english="B=Yes(&Y)\n" + ENGLISH)


if __name__ == "__main__":
    unittest.main()
