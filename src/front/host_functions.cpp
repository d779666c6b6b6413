#include "front/host_functions.h"

#include "front/adjudication.h"
#include "front/thinking.h"
#include "search/host.h"

void InstallHostFunctions() {
    Host.announceDraw = AnnounceDraws;
    Host.announceGameOver = AnnounceGameOver;
    Host.printVariation = PrintThinking;
    Host.announceMove = AnnounceMove;
}
