#include "platform/windows/dde_requests.h"

#include "platform/instance_id.h"
#include "platform/windows/wide_text.h"

#include <algorithm>
#include <utility>

namespace paneda {

namespace {

constexpr wchar_t kService[] = L"paneda";
constexpr wchar_t kTopic[] = L"Panel";
constexpr wchar_t kTurn[] = L"Local\\paneda-dde-panel";
constexpr DWORD kLongestCommand = 4096; // bytes; what is longer is cut
constexpr DWORD kAnswerWithin = 1000;   // ms

// The system's callback has no argument that could lead to the object.
DdeRequests* listener = nullptr;

HSZ OwnService(DWORD instance, const QString& executablePath) {
    const QString name = QStringLiteral("paneda-") + InstanceId(executablePath);
    return DdeCreateStringHandleW(instance, Wide(name), CP_WINUNICODE);
}

HDDEDATA CALLBACK NoEvents(UINT, UINT, HCONV, HSZ, HSZ, HDDEDATA, ULONG_PTR, ULONG_PTR) {
    return nullptr;
}

} // namespace

QString DdeCommandText(const QByteArray& bytes) {
    QString text;
    if (bytes.size() >= 2 && bytes[1] == 0)
        text = QString::fromUtf16(reinterpret_cast<const char16_t*>(bytes.constData()), bytes.size() / 2);
    else
        text = QString::fromLocal8Bit(bytes);
    const qsizetype end = text.indexOf(QChar(u'\0'));
    return end < 0 ? text : text.first(end);
}

DdeRequests::~DdeRequests() {
    Stop();
}

void DdeRequests::Stop() {
    execute_ = {};
    const DWORD instance = std::exchange(instance_, 0);
    if (instance == 0)
        return;
    DdeUninitialize(instance);
    listener = nullptr;
    if (hasTurn_ && turn_)
        ReleaseMutex(turn_);
    if (turn_)
        CloseHandle(turn_);
    turn_ = nullptr;
    hasTurn_ = false;
}

bool DdeRequests::Listen(const QString& executablePath, std::function<void(const QString& text)> execute) {
    execute_ = std::move(execute);
    if (instance_ != 0)
        return true;
    const DWORD filters = APPCLASS_STANDARD | CBF_FAIL_ADVISES | CBF_FAIL_POKES | CBF_FAIL_REQUESTS |
                          CBF_FAIL_SELFCONNECTIONS | CBF_SKIP_ALLNOTIFICATIONS;
    if (DdeInitializeW(&instance_, Callback, filters, 0) != DMLERR_NO_ERROR) {
        instance_ = 0;
        return false;
    }
    listener = this;
    service_ = DdeCreateStringHandleW(instance_, kService, CP_WINUNICODE);
    topic_ = DdeCreateStringHandleW(instance_, kTopic, CP_WINUNICODE);
    turn_ = CreateMutexW(nullptr, FALSE, kTurn);
    HasTurn();
    ownService_ = OwnService(instance_, executablePath);
    DdeNameService(instance_, ownService_, nullptr, DNS_REGISTER);
    return DdeNameService(instance_, service_, nullptr, DNS_REGISTER) != nullptr;
}

bool DdeRequests::Send(const QString& executablePath) {
    DWORD instance = 0;
    if (DdeInitializeW(&instance, NoEvents, APPCMD_CLIENTONLY, 0) != DMLERR_NO_ERROR)
        return false;
    // The user has just started this process, which may pass on its right to the foreground.
    AllowSetForegroundWindow(ASFW_ANY);
    const HSZ topic = DdeCreateStringHandleW(instance, kTopic, CP_WINUNICODE);
    HDDEDATA answer = nullptr;
    if (const HCONV talk = DdeConnect(instance, OwnService(instance, executablePath), topic, nullptr)) {
        wchar_t nothing[] = L"";
        answer = DdeClientTransaction(reinterpret_cast<LPBYTE>(nothing), sizeof nothing, talk, nullptr, 0,
                                      XTYP_EXECUTE, kAnswerWithin, nullptr);
        DdeDisconnect(talk);
    }
    DdeUninitialize(instance);
    return answer != nullptr;
}

// If the owner of the mutex has crashed, the next process that asks gets it.
bool DdeRequests::HasTurn() {
    if (hasTurn_ || !turn_)
        return true;
    const DWORD answer = WaitForSingleObject(turn_, 0);
    hasTurn_ = answer == WAIT_OBJECT_0 || answer == WAIT_ABANDONED;
    return hasTurn_;
}

bool DdeRequests::AnswersTo(HSZ topic, HSZ service) {
    if (DdeCmpStringHandles(topic, topic_) != 0)
        return false;
    return DdeCmpStringHandles(service, ownService_) == 0 ||
           (DdeCmpStringHandles(service, service_) == 0 && HasTurn());
}

void DdeRequests::Execute(HDDEDATA command) {
    DWORD size = 0;
    const BYTE* bytes = DdeAccessData(command, &size);
    if (!bytes)
        return;
    const QString text = DdeCommandText(
        QByteArray(reinterpret_cast<const char*>(bytes), qsizetype(std::min(size, kLongestCommand))));
    DdeUnaccessData(command);
    // Later, so that the sender gets its answer before the panel is shown.
    QMetaObject::invokeMethod(
        &context_,
        [this, text] {
            if (execute_)
                execute_(text);
        },
        Qt::QueuedConnection);
}

HDDEDATA CALLBACK DdeRequests::Callback(UINT type, UINT, HCONV, HSZ first, HSZ second, HDDEDATA data,
                                        ULONG_PTR, ULONG_PTR) {
    // The first text is the topic, the second one the service.
    if (listener && type == XTYP_CONNECT && listener->AnswersTo(first, second))
        return reinterpret_cast<HDDEDATA>(TRUE);
    if (!listener || type != XTYP_EXECUTE)
        return nullptr;
    listener->Execute(data);
    return reinterpret_cast<HDDEDATA>(DDE_FACK);
}

} // namespace paneda
