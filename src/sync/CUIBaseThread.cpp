#include "CUIBaseThread.h"

CUIBaseThread::CUIBaseThread(QObject *parent) : QObject(parent) {}

CUIBaseThread::~CUIBaseThread() = default;
