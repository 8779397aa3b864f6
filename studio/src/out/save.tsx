/** Everything that leaves the page: camera files, presets, sessions, pictures, films, and the command that does the same. */
import { signal, useSignal } from '@preact/signals';
import { studio } from '../app.ts';
import { fromBase64 } from '../model/base64.ts';
import { commandLine, joltsFile, joltsTable } from '../model/command_line.ts';
import { sessionText } from '../model/session.ts';
import { perSecond } from '../model/timecode.ts';
import { isSwitch, isTime } from '../panel/rows.ts';
import { draw, layout, ratio, stage, wipe } from '../views/views.tsx';
import { panesOf } from '../views/layout.ts';
import { words } from '../words.ts';
import { download, stem } from './download.ts';
import { canFilm, film, frameFiles, pictureOf } from './film.ts';
import type { Filming } from './film.ts';

/** Extensions that the library writes. */
export const FORMATS = ['.csv', '.json', '.chan', '.usda', '.gltf', '.glb', '.py', '.txt', '.transforms.json', '.camera_path.json'];
const ANGLE = 2, FILM_HEIGHT = 720;

export const isOpen = signal(false);
const filming = signal<{ done: number; all: number } | null>(null);
let ended = false;

const moveName = () => studio.shown.peek()?.move.name ?? 'camera';
const guarded = (work: () => Promise<void>) => () => void work().catch((error: unknown) => studio.tell(error));

async function saveCamera(extension: string): Promise<void> {
    const name = `${stem(moveName())}-shaken${extension}`;
    const bytes = await studio.engine.call('write', { look: studio.look.peek(), name, of: 'shaken' });
    download(name, bytes as Uint8Array<ArrayBuffer>);
}
async function savePreset(name: string): Promise<void> {
    const bytes = await studio.engine.call('writePreset', { look: studio.look.peek(), name });
    download(name.replaceAll(/[/\\:*?"<>|]/g, '_'), bytes as Uint8Array<ArrayBuffer>);
}
const saveSession = async () => {
    const shot = studio.shot.peek();
    if (shot !== null) download(`${stem(moveName())}.tremolux.json`, sessionText(shot), 'application/json');
};
async function savePicture(): Promise<void> {
    if (stage === undefined) return studio.say(words.views.noGraphics, true);
    draw();
    download(`${stem(moveName())}.png`, await pictureOf(stage.canvas), 'image/png');
}

/** The view at 720 lines, whatever the window has, and put back afterwards. */
async function whileFilming(work: (filming: Filming) => Promise<void>): Promise<void> {
    const shown = studio.shown.peek(), theStage = stage;
    if (theStage === undefined || shown === null) return studio.say(words.views.noGraphics, true);
    const { width, height } = theStage.canvas, frames = shown.move.info.frameCount;
    const wide = ratio() * (layout.peek() === 'side' ? 2 : 1);
    ended = false;
    theStage.resize(2 * Math.round((FILM_HEIGHT * wide) / 2), FILM_HEIGHT);
    const panes = panesOf(layout.peek(), wipe.peek(), false);
    try {
        await work({
            canvas: theStage.canvas, frames, framesPerSecond: perSecond(studio.rate.peek()),
            draw: (frame) => theStage.draw(shown, frame, panes, ratio()),
            progress: (done) => {
                filming.value = { done, all: frames };
                return !ended;
            },
        });
    } finally {
        filming.value = null;
        theStage.resize(width, height);
        draw();
    }
}
const saveFilm = () => whileFilming(async (work) => {
    if (!await canFilm(work.canvas.width, work.canvas.height)) return studio.say(words.out.noFilm, true);
    const bytes = await film(work);
    if (bytes !== undefined) download(`${stem(moveName())}.webm`, bytes, 'video/webm');
});
const saveFrames = () => whileFilming(async (work) => {
    const bytes = await frameFiles(stem(moveName()), work);
    if (bytes !== undefined) download(`${stem(moveName())}-frames.zip`, bytes, 'application/zip');
});

export function commandText(): string {
    const parameters = studio.facts.value?.parameters ?? [];
    const ids = (has: (parameter: (typeof parameters)[number]) => boolean) => new Set(parameters.filter(has).map(({ id }) => id));
    return commandLine(studio.look.value, {
        moveName: studio.shown.value?.move.name ?? 'camera', output: `${stem(moveName())}-shaken.csv`,
        switches: ids(isSwitch), times: ids(isTime), angles: ids(({ unit }) => unit === ANGLE),
    });
}

export async function copy(text: string, done: string): Promise<void> {
    try {
        await navigator.clipboard.writeText(text);
        studio.say(done);
    } catch {
        studio.say(words.copyFailed, true);
    }
}

/** Files that the command line needs beside the move. */
function CommandFiles() {
    const look = studio.look.value, { base } = look;
    return (
        <>
            {look.jolts.length > 0 && <button type="button" onClick={() => download(joltsFile(moveName()), joltsTable(look), 'text/csv')}>{words.out.joltsFile}</button>}
            {base.kind === 'file' && <button type="button" onClick={() => download(base.name, fromBase64(base.data))}>{words.out.baseFile}</button>}
        </>
    );
}

export function Save() {
    const format = useSignal('.csv'), name = useSignal(words.out.presetName);
    if (!isOpen.value) return null;
    const busy = filming.value;
    return (
        <section class="save" aria-label={words.save}>
            <div class="row">
                <strong>{words.out.shaken}</strong>
                <label>{words.out.formats} <select value={format.value} onChange={(event) => { format.value = event.currentTarget.value; }}>
                    {FORMATS.map((one) => <option key={one}>{one}</option>)}</select></label>
                <button type="button" onClick={guarded(() => saveCamera(format.value))}>{words.out.download}</button>
                <span class="push" /><button type="button" class="small" aria-label={words.out.close} onClick={() => { isOpen.value = false; }}>✕</button>
            </div>
            <div class="row">
                <strong>{words.out.preset}</strong>
                <input type="text" aria-label={words.out.preset} value={name.value} maxLength={100} onInput={(event) => { name.value = event.currentTarget.value; }} />
                <button type="button" disabled={name.value.trim() === ''} onClick={guarded(() => savePreset(name.value.trim()))}>{words.out.download}</button>
                <button type="button" onClick={guarded(saveSession)}>{words.out.session}</button>
            </div>
            <div class="row">
                <button type="button" onClick={guarded(savePicture)}>{words.out.picture}</button>
                <button type="button" disabled={busy !== null} onClick={guarded(saveFilm)}>{words.out.film}</button>
                <button type="button" disabled={busy !== null} onClick={guarded(saveFrames)}>{words.out.frames}</button>
                {busy !== null && <span role="status">{words.out.filming(busy.done, busy.all)} <button type="button" class="small" onClick={() => { ended = true; }}>{words.stop}</button></span>}
            </div>
            <div class="row">
                <strong>{words.out.command}</strong>
                <button type="button" onClick={() => void copy(commandText(), words.out.copied)}>{words.out.copy}</button>
                <CommandFiles />
            </div>
            <textarea class="command" readOnly rows={3} aria-label={words.out.command} value={commandText()} />
        </section>
    );
}
