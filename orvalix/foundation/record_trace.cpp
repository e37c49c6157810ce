#include "orvalix/foundation/record_trace.h"

namespace {

thread_local CRecordTrace* innermost = nullptr;

}  // namespace

CRecordTrace::CRecordTrace() : m_outer(innermost) { innermost = this; }

CRecordTrace::~CRecordTrace() { innermost = m_outer; }

CRecordTrace* CRecordTrace::Current() { return innermost; }
