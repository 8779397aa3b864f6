/** The page's state, and everything that changes it. The engine is asked for the newest look alone: looks that came and went
 * while it was busy are never computed. */
import { batch, computed, effect, signal } from '@preact/signals';
import { Engine, EngineFailure, Stopped } from '../engine/client.ts';
import type { Details, EngineFacts, OpenMove } from '../engine/protocol.ts';
import { words } from '../words.ts';
import { begun, edited, redone, settled, undone } from './history.ts';
import type { History } from './history.ts';
import { fitted, FRESH_LOOK } from './look.ts';
import type { Look } from './look.ts';
import { NotALook } from './read_look.ts';
import type { MoveFile, ShotState } from './session.ts';
import { MOST_BYTES } from './session.ts';
import type { Rate } from './timecode.ts';

/** A look, and what the engine made of it. */
export interface Shown {
    readonly look: Look;
    readonly move: OpenMove;
    readonly numbers: Float64Array;
}
export interface Message {
    readonly text: string;
    readonly isBad: boolean;
}

const DETAILS_AFTER = 60; // milliseconds without an edit

export class Studio {
    readonly engine = new Engine();
    readonly facts = signal<EngineFacts | null>(null);
    readonly shown = signal<Shown | null>(null);
    readonly details = signal<Details | null>(null);
    private readonly detailsOf = signal<Look | null>(null);
    readonly message = signal<Message | null>(null);
    /** Since when the engine computes one answer. */
    readonly busySince = signal<number | null>(null);
    private readonly history = signal<History<ShotState> | null>(null);
    /** The other state of a comparison. */
    private readonly other = signal<ShotState | null>(null);
    readonly isOther = signal(false);

    readonly shot = computed(() => this.history.value?.present ?? null);
    readonly look = computed(() => this.shot.value?.look ?? FRESH_LOOK);
    readonly canUndo = computed(() => (this.history.value?.past.length ?? 0) > 0);
    readonly canRedo = computed(() => (this.history.value?.future.length ?? 0) > 0);
    readonly hasOther = computed(() => this.other.value !== null);
    readonly rate = computed((): Rate => {
        const info = this.shown.value?.move.info;
        return { numerator: info?.rateNumerator ?? 30, denominator: info?.rateDenominator ?? 1 };
    });
    /** Whether frames and details are those of the look. */
    readonly isSettled = computed(() => this.detailsOf.value !== null && this.detailsOf.value === this.shot.value?.look);
    readonly firstFrame = computed(() => this.shown.value?.move.info.firstFrame ?? 0);
    readonly lastFrame = computed(() => this.firstFrame.value + (this.shown.value?.move.info.frameCount ?? 1) - 1);

    /** What the worker has open. */
    private openMove: OpenMove | null = null;
    private openFile: MoveFile | null = null;
    private isPlaying = false;
    private detailsTimer: ReturnType<typeof setTimeout> | undefined;

    constructor() {
        // Whatever made the state another one: an edit, an undo, a comparison.
        effect(() => {
            if (this.shot.value !== null) void this.bringEngine();
        });
    }

    async start(): Promise<void> {
        this.facts.value = await this.engine.call('start', {});
    }

    /** Opens a move in place of the one that is there, whose look stays, as far as it fits. When it cannot be read nothing changes.
     * Whether it was. */
    async open(file: MoveFile, look?: Look): Promise<boolean> {
        if (file.bytes.length > MOST_BYTES) {
            this.say(words.tooLarge(file.name, MOST_BYTES), true);
            return false;
        }
        try {
            await this.openInWorker(file);
        } catch (error) {
            this.tell(error);
            // The worker has the old move still, or none after it was stopped.
            return false;
        }
        const { firstFrame, frameCount } = (this.openMove as OpenMove).info;
        const state: ShotState = { move: file, look: look ?? fitted(this.look.value, firstFrame, firstFrame + frameCount - 1) };
        batch(() => {
            this.message.value = null;
            this.become(state);
        });
        return true;
    }

    /** A change of the look; changes of one gesture are one step of undo. */
    edit(change: (look: Look) => Look, gesture: string | null = null): void {
        const history = this.history.value;
        if (history === null) return;
        const look = change(history.present.look);
        if (look === history.present.look) return;
        this.message.value = null;
        this.history.value = edited(history, { ...history.present, look }, gesture);
    }
    settle(): void {
        if (this.history.value !== null) this.history.value = settled(this.history.value);
    }
    undo(): void {
        if (this.history.value !== null) this.history.value = undone(this.history.value);
    }
    redo(): void {
        if (this.history.value !== null) this.history.value = redone(this.history.value);
    }
    /** In place of move and look, as one step. */
    become(state: ShotState): void {
        const history = this.history.value;
        this.history.value = history === null ? begun(state) : edited(history, state);
    }

    /** Keeps the state as B, or goes over to it and keeps the present one. */
    keepOther(): void {
        this.other.value = this.shot.value;
    }
    swapOther(): void {
        const present = this.shot.value, other = this.other.value;
        if (present === null || other === null) return;
        batch(() => {
            this.other.value = present;
            this.isOther.value = !this.isOther.value;
            this.become(other);
        });
    }

    async press(button: number): Promise<void> {
        const look = this.look.value;
        try {
            const settings = await this.engine.call('press', { look, button });
            this.edit((now) => ({ ...now, settings }));
        } catch (error) {
            this.tell(error);
        }
    }

    /** Ends what the engine computes; the picture stays as it was. */
    async stop(): Promise<void> {
        this.openFile = null;
        this.engine.stop();
        const shown = this.shown.value, present = this.shot.value;
        if (shown !== null && present !== null && shown.look !== present.look) this.undo();
        else void this.bringEngine();
    }

    say(text: string, isBad = false): void {
        this.message.value = { text, isBad };
    }
    tell(error: unknown): void {
        if (error instanceof Stopped) return;
        const isOurs = error instanceof EngineFailure || error instanceof NotALook;
        this.say(isOurs ? error.message : `${words.wentWrong} ${String(error)}`, true);
    }

    private async openInWorker(file: MoveFile): Promise<void> {
        // A copy goes to the worker: sessions, and a worker that takes its place, want the bytes again.
        this.openMove = await this.engine.call('open', { name: file.name, bytes: file.bytes });
        this.openFile = file;
    }

    /** One at a time, until what is shown is the state. */
    private async bringEngine(): Promise<void> {
        if (this.isPlaying) return;
        this.isPlaying = true;
        this.busySince.value = performance.now();
        try {
            for (let wanted = this.shot.peek(); wanted !== null && !this.shows(wanted); wanted = this.shot.peek())
                if (!await this.bring(wanted)) break;
        } finally {
            this.isPlaying = false;
            this.busySince.value = null;
        }
        clearTimeout(this.detailsTimer);
        this.detailsTimer = setTimeout(() => void this.bringDetails(), DETAILS_AFTER);
    }

    private shows(state: ShotState): boolean {
        return this.openFile === state.move && this.shown.peek()?.look === state.look && this.shown.peek()?.move === this.openMove;
    }

    /** Whether there is anything that can be shown. */
    private async bring(wanted: ShotState): Promise<boolean> {
        try {
            if (this.openFile !== wanted.move) await this.openInWorker(wanted.move);
            const numbers = await this.engine.call('play', { look: wanted.look });
            this.shown.value = { look: wanted.look, move: this.openMove as OpenMove, numbers };
            return true;
        } catch (error) {
            return this.giveUp(wanted, error);
        }
    }

    /** A look that the engine refuses is no step: the one before it comes back. */
    private giveUp(refused: ShotState, error: unknown): boolean {
        this.tell(error);
        const history = this.history.peek();
        if (history === null || history.present !== refused) return true;
        const isFirst = history.past.length === 0;
        this.history.value = isFirst ? begun({ ...refused, look: FRESH_LOOK }) : { ...undone(history), future: [] };
        return !isFirst || refused.look !== FRESH_LOOK;
    }

    private async bringDetails(): Promise<void> {
        const shown = this.shown.peek();
        if (shown === null || this.isPlaying || shown.look !== this.shot.peek()?.look) return;
        try {
            const details = await this.engine.call('details', { look: shown.look });
            if (this.shown.peek() !== shown) return;
            batch(() => {
                this.details.value = details;
                this.detailsOf.value = shown.look;
            });
        } catch (error) {
            this.tell(error);
        }
    }
}
