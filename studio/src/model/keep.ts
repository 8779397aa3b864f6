/** The last shot, kept by the browser. */
import { sessionText, readSession } from './session.ts';
import type { ShotState } from './session.ts';

const NAME = 'tremolux studio';

/** Whether it was kept: browsers give a page a few megabytes, or nothing. */
export function keep(shot: ShotState): boolean {
    try {
        localStorage.setItem(NAME, sessionText(shot));
        return true;
    } catch {
        return false;
    }
}
/** Nothing: there is none, or it is of another studio. */
export function kept(): ShotState | undefined {
    try {
        const text = localStorage.getItem(NAME);
        return text === null ? undefined : readSession(text);
    } catch {
        return undefined;
    }
}
