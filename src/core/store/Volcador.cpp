// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/store/Volcador.h"

#include <sqlite3.h>

namespace almacen {

namespace {

// The size of the log at which the engine, left to itself, copies it at the commit.
constexpr int kPaginasParaVolcar = 1000;

} // namespace

Volcador::Volcador(sqlite3 *base)
    : base_(base)
    , archivo_(sqlite3_db_filename(base, "main"))
{
    // The hook takes the place of the engine's own copy at the commit.
    sqlite3_wal_hook(base_, &Volcador::AlConfirmar, this);
}

Volcador::~Volcador()
{
    sqlite3_wal_hook(base_, nullptr, nullptr);
    {
        std::lock_guard cerrojo(mutex_);
        fin_ = true;
    }
    aviso_.notify_one();
    if (hilo_.joinable())
        hilo_.join();
}

int Volcador::AlConfirmar(void *volcador, sqlite3 *base, const char *esquema, int paginas)
{
    auto *v = static_cast<Volcador *>(volcador);
    // Pages this commit wrote: the log starts again from nothing once it has been copied.
    const int escritas = paginas >= v->paginasAntes_ ? paginas - v->paginasAntes_ : paginas;
    v->paginasAntes_ = paginas;
    if (paginas < kPaginasParaVolcar)
        return SQLITE_OK;
    // A large commit is copied by the thread. After a small one the copy is done here, as the
    // engine does it by itself: a few pages, and only then does the log start again from
    // nothing at the next write; left to the thread, commits one after another would always
    // find the last one not yet copied, and the log would grow for as long as they come.
    // While the thread copies, this returns at once.
    if (escritas >= kPaginasParaVolcar && !v->fallido_)
        v->Pedir();
    else
        sqlite3_wal_checkpoint(base, esquema);
    return SQLITE_OK;
}

void Volcador::Pedir()
{
    {
        std::lock_guard cerrojo(mutex_);
        pedido_ = true;
        if (!hilo_.joinable())
            hilo_ = std::thread(&Volcador::Trabajar, this);
    }
    aviso_.notify_one();
}

void Volcador::Trabajar()
{
    sqlite3 *base = nullptr;
    // Only an existing file, never made anew; no mutex, this thread alone uses it.
    // A first read finds the file in WAL mode: before it the connection has no log to copy.
    if (sqlite3_open_v2(archivo_.constData(), &base, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX,
                        nullptr) != SQLITE_OK ||
        sqlite3_exec(base, "SELECT count(*) FROM sqlite_schema", nullptr, nullptr, nullptr) !=
            SQLITE_OK) {
        sqlite3_close(base);
        fallido_ = true;
        return;
    }
    std::unique_lock cerrojo(mutex_);
    for (;;) {
        aviso_.wait(cerrojo, [this] { return pedido_ || fin_; });
        if (fin_)
            break;
        pedido_ = false;
        cerrojo.unlock();
        // PASSIVE: it copies what no reader still needs and never waits for a lock, so the
        // store's connection goes on reading and writing meanwhile.
        sqlite3_wal_checkpoint_v2(base, nullptr, SQLITE_CHECKPOINT_PASSIVE, nullptr, nullptr);
        cerrojo.lock();
    }
    cerrojo.unlock();
    sqlite3_close(base);
}

} // namespace almacen
