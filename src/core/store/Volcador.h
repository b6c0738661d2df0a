// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The copy of the write-ahead log into the database file, done by a thread of its own on a
// connection of its own. A QSO is safe once its commit has reached the log on disk; copying
// the log's pages into the file afterwards is housekeeping. Done at the commit, as the engine
// does it by itself, it would double the wait for every large write (an import, a bulk
// load): the operator would wait for pages to be copied that are already safe.

#include <QByteArray>
#include <atomic>
#include <condition_variable>
#include <mutex>
#include <thread>

struct sqlite3;

namespace almacen {

class Volcador
{
public:
    // From now on a commit that writes as many pages as the engine would let the log hold
    // before copying it no longer copies the log itself: it wakes this thread, which starts
    // with the first such commit. Smaller commits copy it as the engine always did.
    explicit Volcador(sqlite3 *base);
    // Waits for a copy under way, then closes the thread's connection: before the connection
    // of the store closes, which as the last one copies what is left and removes the log.
    ~Volcador();
    Volcador(const Volcador &) = delete;
    Volcador &operator=(const Volcador &) = delete;

private:
    static int AlConfirmar(void *volcador, sqlite3 *, const char *, int paginas);
    void Pedir();
    void Trabajar();

    sqlite3 *base_;
    QByteArray archivo_;
    std::thread hilo_;
    std::mutex mutex_;
    std::condition_variable aviso_;
    bool pedido_ = false;
    bool fin_ = false;
    int paginasAntes_ = 0; // in the log after the commit before; of the store's thread only
    // The thread could not open its connection: the commits copy the log again themselves.
    std::atomic<bool> fallido_ = false;
};

} // namespace almacen
