/** The panel's groups and rows, from the engine's own description. */
import type { EngineFacts, PanelEntry, Parameter } from '../engine/protocol.ts';

const GROUP = 1, SEPARATOR = 2;
const NUMBER = 1, SWITCH = 2, TIME = 3, BUTTON = 7;

/** Buttons that ask nothing of an application around the tag: all others open its windows, write its files or key its tracks. */
const BUTTONS: ReadonlySet<string> = new Set([
    'Coffee Cup', 'Human', 'Car', 'House', 'Skyscraper', 'Zero Pos', 'Zero Rot', 'Zero Initials', 'Randomize Seeds', "I'm Feeling Lucky",
]);

export type Row =
    | { readonly kind: 'value'; readonly parameter: Parameter }
    | { readonly kind: 'button'; readonly parameter: Parameter }
    | { readonly kind: 'title'; readonly id: number; readonly title: string }
    | { readonly kind: 'group'; readonly group: Group };
export interface Group {
    readonly id: number;
    readonly title: string;
    readonly columns: number;
    readonly isOpen: boolean;
    readonly rows: readonly Row[];
}

export const isKeyable = ({ kind }: Parameter): boolean => kind === NUMBER || kind === SWITCH;
export const isSwitch = ({ kind }: Parameter): boolean => kind === SWITCH;
export const isTime = ({ kind }: Parameter): boolean => kind === TIME;
export const holdsValue = ({ kind }: Parameter): boolean => kind === NUMBER || kind === SWITCH || kind === TIME;

function rowOf(entry: PanelEntry, facts: EngineFacts, parameters: ReadonlyMap<number, Parameter>): Row | undefined {
    if (entry.kind === GROUP) {
        const group = groupOf(entry, facts, parameters);
        return group.rows.some(({ kind }) => kind !== 'title') ? { kind: 'group', group } : undefined;
    }
    if (entry.kind === SEPARATOR) return entry.title === '' ? undefined : { kind: 'title', id: entry.id, title: entry.title };
    const parameter = parameters.get(entry.id);
    if (parameter === undefined) return undefined;
    if (holdsValue(parameter)) return { kind: 'value', parameter };
    return parameter.kind === BUTTON && BUTTONS.has(parameter.label) ? { kind: 'button', parameter } : undefined;
}

/** A title with nothing beneath it is none. */
const withoutEmptyTitles = (rows: readonly Row[]): Row[] =>
    rows.filter((row, index) => row.kind !== 'title' || (rows[index + 1] !== undefined && rows[index + 1]?.kind !== 'title'));

function groupOf(entry: PanelEntry, facts: EngineFacts, parameters: ReadonlyMap<number, Parameter>): Group {
    const rows = facts.panel.filter(({ group }) => group === entry.id).map((inner) => rowOf(inner, facts, parameters));
    const { id, title, columns, isOpen } = entry;
    return { id, title, columns, isOpen, rows: withoutEmptyTitles(rows.filter((row) => row !== undefined)) };
}

/** In the description's order; what has no row is left out. */
export function groupsOf(facts: EngineFacts): Group[] {
    const parameters = new Map(facts.parameters.map((parameter) => [parameter.id, parameter]));
    return facts.panel.filter(({ kind, group }) => kind === GROUP && group === 0)
        .map((entry) => groupOf(entry, facts, parameters)).filter(({ rows }) => rows.length > 0);
}

const folded = (text: string) => text.toLowerCase();
const hasWord = (parameter: Parameter, word: string): boolean =>
    [parameter.label, parameter.section, parameter.tab, parameter.sentence, String(parameter.id)].some((text) => folded(text).includes(word));

/** The groups with the rows in whose label, section or sentence the word is; all of them are open. */
export function found(groups: readonly Group[], word: string): Group[] {
    const wanted = folded(word.trim());
    if (wanted === '') return [...groups];
    const keep = (group: Group): Group => {
        const rows = group.rows.flatMap((row): Row[] => {
            if (row.kind === 'group') {
                const inner = keep(row.group);
                return inner.rows.length > 0 ? [{ kind: 'group', group: inner }] : [];
            }
            return row.kind !== 'title' && hasWord(row.parameter, wanted) ? [row] : [];
        });
        return { ...group, isOpen: true, rows };
    };
    return groups.map(keep).filter(({ rows }) => rows.length > 0);
}
