#include "platform/text/FileError.h"

#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"

#include <cerrno>

namespace tv {

std::wstring fileErrorReason(int error) {
    switch (error) {
    case ENOENT:
    case ENOTDIR:
        return VORD_ResourceString("IDS_TAVO_FILE_NOT_FOUND", L"파일이나 폴더가 없습니다").c_str();
    case EACCES:
    case EPERM:
        return VORD_ResourceString("IDS_TAVO_FILE_NO_PERMISSION", L"접근 권한이 없습니다").c_str();
    case EROFS:
        return VORD_ResourceString("IDS_TAVO_FILE_READ_ONLY", L"읽기 전용입니다").c_str();
    case ENOSPC:
    case EDQUOT:
        return VORD_ResourceString("IDS_TAVO_FILE_DISK_FULL", L"디스크에 남은 공간이 없습니다").c_str();
    case EFBIG:
        return VORD_ResourceString("IDS_TAVO_FILE_TOO_BIG", L"파일이 너무 큽니다").c_str();
    case EISDIR:
        return VORD_ResourceString("IDS_TAVO_FILE_IS_FOLDER", L"파일이 아니라 폴더입니다").c_str();
    case EINVAL:
        return VORD_ResourceString("IDS_TAVO_FILE_NOT_REGULAR", L"일반 파일이 아닙니다").c_str();
    case ELOOP:
        return VORD_ResourceString("IDS_TAVO_FILE_LINK_LOOP", L"링크가 서로를 가리킵니다").c_str();
    case ENAMETOOLONG:
        return VORD_ResourceString("IDS_TAVO_FILE_NAME_LONG", L"이름이 너무 깁니다").c_str();
    case ENOMEM:
        return VORD_ResourceString("IDS_TAVO_FILE_NO_MEMORY", L"메모리가 부족합니다").c_str();
    case EIO:
        return VORD_ResourceString("IDS_TAVO_FILE_DEVICE", L"장치에서 입출력 오류가 발생했습니다").c_str();
    default:
        return text::format(
            VORD_ResourceString("IDS_TAVO_FILE_SYSTEM_ERROR", L"시스템 오류 %d이(가) 발생했습니다"), error);
    }
}

Problem fileProblem(FileAction doing, const std::filesystem::path& file, int error) {
    Problem problem;
    problem.status = error == EROFS                        ? Tavo::eReadOnly
                     : error == ENOENT || error == ENOTDIR ? Tavo::eFileNotFound
                                                           : Tavo::eFileAccess;
    problem.file = text::fromUtf8(file.native());
    const wchar_t* sentence =
        doing == FileAction::Read
            ? VORD_ResourceString("IDS_TAVO_FILE_CANNOT_READ", L"파일 \"%s\"을(를) 읽을 수 없습니다: %s.")
                  .c_str()
            : VORD_ResourceString("IDS_TAVO_FILE_CANNOT_WRITE", L"파일 \"%s\"을(를) 저장할 수 없습니다: %s.")
                  .c_str();
    // A file that is written needs not be there, only its folder.
    const bool noFolder = doing == FileAction::Write && problem.status == Tavo::eFileNotFound;
    problem.sentence = text::format(
        sentence, problem.file,
        noFolder ? VORD_ResourceString("IDS_TAVO_FILE_NO_FOLDER", L"저장할 폴더가 없습니다").c_str()
                 : fileErrorReason(error));
    return problem;
}

} // namespace tv
