#include "platform/windows/dde_requests.h"

#include <algorithm>

namespace paneda {

namespace {

constexpr wchar_t kService[] = L"paneda";
constexpr wchar_t kTopic[] = L"Panel";
constexpr wchar_t kTurn[] = L"Local\\paneda-dde-panel";
constexpr DWORD kLongestCommand = 4096; // bytes; what is longer is cut

// The system's callback carries nothing that could lead to the object.
DdeRequests* listener = nullptr;

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
    if (instance_ != 0) {
        DdeUninitialize(instance_);
        listener = nullptr;
    }
    if (hasTurn_ && turn_)
        ReleaseMutex(turn_);
    if (turn_)
        CloseHandle(turn_);
}

bool DdeRequests::Listen(std::function<void(const QString& text)> execute) {
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
    return DdeNameService(instance_, service_, nullptr, DNS_REGISTER) != nullptr;
}

// A mutex that its owner leaves without giving it back, by a crash, falls to the next one that asks.
bool DdeRequests::HasTurn() {
    if (hasTurn_ || !turn_)
        return true;
    const DWORD answer = WaitForSingleObject(turn_, 0);
    hasTurn_ = answer == WAIT_OBJECT_0 || answer == WAIT_ABANDONED;
    return hasTurn_;
}

bool DdeRequests::IsOwn(HSZ topic, HSZ service) const {
    return DdeCmpStringHandles(topic, topic_) == 0 && DdeCmpStringHandles(service, service_) == 0;
}

void DdeRequests::Execute(HDDEDATA command) {
    DWORD size = 0;
    const BYTE* bytes = DdeAccessData(command, &size);
    if (!bytes)
        return;
    const QString text = DdeCommandText(
        QByteArray(reinterpret_cast<const char*>(bytes), qsizetype(std::min(size, kLongestCommand))));
    DdeUnaccessData(command);
    // Later, so that the sender has its answer before anything is shown.
    QMetaObject::invokeMethod(
        &context_, [this, text] { execute_(text); }, Qt::QueuedConnection);
}

HDDEDATA CALLBACK DdeRequests::Callback(UINT type, UINT, HCONV, HSZ first, HSZ second, HDDEDATA data,
                                        ULONG_PTR, ULONG_PTR) {
    // Both texts name the topic first.
    if (listener && type == XTYP_CONNECT && listener->IsOwn(first, second) && listener->HasTurn())
        return reinterpret_cast<HDDEDATA>(TRUE);
    if (!listener || type != XTYP_EXECUTE)
        return nullptr;
    listener->Execute(data);
    return reinterpret_cast<HDDEDATA>(DDE_FACK);
}

} // namespace paneda
